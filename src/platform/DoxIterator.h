#pragma once

#include "platform/Text.h"

#include <cstddef>

class DoxDocument;

/// A place in a DoxDocument: always on an element, once Root() was called on a loaded document.
/// Every move that finds no element leaves the iterator where it is and answers false.
class TOVI_EXPORT DoxIterator
{
public:
    /// \p document must be loaded and outlive the iterator.
    explicit DoxIterator(DoxDocument* document);

    bool Root();
    /// The first child element.
    bool Child();
    /// The element around this one; false on the root.
    bool Parent();
    bool NextSibling();
    /// The next element in document order; false on the last one.
    bool Next();

    void GetTagName(CString& tag) const;
    /// True when the tag name is exactly \p tag.
    bool IsTag(std::string_view tag) const;
    /// The character data directly inside this element, not that of its children.
    void GetText(CString& text) const;
    CString GetText() const;

    /// A number that grows in document order: of two places the one with the larger number begins
    /// later in the file.
    std::ptrdiff_t Position() const;

private:
    DoxDocument* document;
    /// The tree library's own node.
    void* node = nullptr;
};
