#pragma once

#include "platform/text/Text.h"

#include <cstddef>

class DoxDocument;

/// A place in a DoxDocument: on an element, once Root() was called on a document that has one, else
/// on the document itself. Every move that finds no element leaves the iterator where it is and
/// answers false.
class TOVI_EXPORT DoxIterator
{
public:
    /// \p document must be loaded and outlive the iterator.
    explicit DoxIterator(DoxDocument* document);

    bool Root();
    /// The first child element.
    bool Child();
    bool ChildHead() { return Child(); }
    /// The last child element.
    bool ChildTail();
    /// The element around this one; false on the root.
    bool Parent();
    bool NextSibling();
    /// The next element in document order; false on the last one.
    bool Next();
    /// The next element in document order that isn't inside this one; false when there is none.
    bool NextOutside();
    /// The next element inside \p top, which is this one or around it; false on the last one.
    bool NextInside(const DoxIterator& top);

    void GetTagName(CString& tag) const;
    /// The tag name, valid as long as the document.
    std::string_view TagName() const;
    /// True when the tag name is exactly \p tag.
    bool IsTag(std::string_view tag) const;
    /// The character data directly inside this element, not that of its children.
    /// True when it has child elements too.
    bool GetText(CString& text) const;
    CString GetText() const;

    /// True unless the iterator is on the document itself.
    bool IsElement() const;
    /// Appends an empty element \p tag to the children of this one, or makes it the root where the
    /// document has none. The iterator stays. False when the tag is empty or there is a root
    /// already.
    bool InsertChild(const char* tag);
    /// Replaces the character data of this element, which must have no children.
    void SetText(const char* text);
    void SetText(unsigned long number);
    /// Takes this element out with all beneath; the iterator goes to the one around it. False on
    /// the document itself.
    bool Remove();

    /// A number that grows in document order: of two places the one with the larger number begins
    /// later in the file.
    std::ptrdiff_t Position() const;
    /// True when both are in the same place.
    bool operator==(const DoxIterator& other) const { return node == other.node; }

private:
    DoxDocument* document;
    /// The tree library's own node.
    void* node = nullptr;
};
