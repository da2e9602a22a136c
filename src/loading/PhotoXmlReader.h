#pragma once

#include "loading/DefinitionWalk.h"

#include <functional>

class DoxDocument;
class ToviData;

/// Reads a PHOTO.XML into a document: the item definitions and the XML tree are walked in step. The
/// definitions are the flattened image of the element tree; their operations stand for the nesting.
///
/// Three walks share this idea and differ on purpose in what they do about elements that aren't
/// there: this one over the top level, PhotoBlockWalk and RepeatingBlockWalk.
class PhotoXmlReader
{
public:
    /// \p report hears how many photographs have been read. All arguments outlive the reader.
    PhotoXmlReader(ToviData& target, DoxDocument& xml, std::function<void(const CString&)> report);

    /// False when an element that must not be absent is, or when the document ends before the first
    /// element that is defined. Unbalanced definitions throw InvalidArgument.
    [[nodiscard]] bool Read();

private:
    bool FindFirst(const DefinitionWalk& walk);
    void ReadMatch(DefinitionWalk& walk);
    bool PassAbsent(DefinitionWalk& walk);
    void Move(const DefinitionWalk& walk);

    ToviData& document;
    const ToviItemDef& def;
    DoxIterator it;
    std::function<void(const CString&)> progress;
    /// Mandatory blocks that weren't there: the Parent of each must not move the iterator.
    int skipped = 0;
};
