#pragma once

#include "loading/DefinitionWalk.h"

#include <functional>
#include <optional>

class DoxDocument;
class PhotoBlockWalk;
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

    /// False when an element that must not be absent is, or when the document holds neither the
    /// first element that is defined nor a photograph. Unbalanced definitions throw
    /// InvalidArgument.
    [[nodiscard]] bool Read();

private:
    /// Goes to the first element that is defined, or without one to the definition of the
    /// photographs. False when there are none either.
    bool FindFirst(DefinitionWalk& walk);
    /// Reads the photographs once it is their turn, wherever they stand. False when it isn't, and
    /// when there are none.
    bool ReadPhotos(DefinitionWalk& walk);
    /// The first photograph: among the elements beside the one on which the iterator stands, else
    /// in the whole file; nothing when there is none.
    std::optional<DoxIterator> FindPhoto(const CString& tag) const;
    static void LoadPhotos(PhotoBlockWalk& photos, DefinitionWalk& walk);
    void CountPhotos(const PhotoBlockWalk& photos, const DoxIterator& first, const CString& tag);
    bool ReadMatch(DefinitionWalk& walk);
    bool PassAbsent(DefinitionWalk& walk);
    void Move(DefinitionWalk& walk);

    ToviData& document;
    const ToviItemDef& def;
    const DoxIterator root;
    DoxIterator it;
    std::function<void(const CString&)> progress;
    /// Mandatory blocks that weren't there: the Parent of each must not move the iterator.
    int skipped = 0;
    bool hasLookedForPhotos = false;
};
