#pragma once

#include "loading/DefinitionWalk.h"

#include <functional>
#include <optional>
#include <vector>

class ToviData;

/// Walks the photographs: the block of definitions from 写真情報 up to the next one that belongs to
/// the delivery as a whole, once for each photograph, all under one parent. None is lost for what
/// stands between them or in them, and no value that a photograph holds for being in another place.
class PhotoBlockWalk
{
public:
    /// \p report hears how many photographs have been read, at every fiftieth.
    PhotoBlockWalk(ToviData& target, DoxIterator& iterator,
                   const std::function<void(const CString&)>& report);

    /// \p index enters as the position of the definition on whose tag the iterator stands, and
    /// leaves as the last definition of the block; the iterator leaves on the element behind the
    /// last photograph, if there is one. False, with \p index unchanged, when an element that must
    /// not be absent is: the photographs before stay, the one being read is dropped. Definitions
    /// that close more than they open throw InvalidArgument.
    bool LoadPhotoItem(int& index);

    /// The values that no definition has read where they stand, see AdoptUnreadValues.
    int AdoptedValues() const { return adoptedValues; }
    /// How many photographs there are in the file from the first to the last one that was walked:
    /// those that were read, and others inside them or in the elements between.
    int PhotoElements() const { return photoElements; }
    const DoxIterator& LastPhoto() const { return lastPhoto; }

private:
    int EndOfBlock(int index) const;
    /// Reads the photograph on which the iterator stands. Returns the definition behind the last
    /// one, or nothing when an element that must not be absent is.
    std::optional<int> ReadPhoto(int index, int end);
    bool WalkPhoto(DefinitionWalk& walk, int end);
    bool ReadMatch(DefinitionWalk& walk, int end);
    bool PassAbsent(DefinitionWalk& walk);
    void Move(DefinitionWalk& walk);
    void Append(ToviItemArray&& items);
    /// From the last photograph on to the next one under its parent, past whatever stands between.
    /// False, on the element behind it, when there is none.
    bool GoToNext(const CString& tag);

    ToviData& document;
    const ToviItemDef& def;
    DoxIterator& it;
    const std::function<void(const CString&)>& progress;
    /// Mandatory blocks that weren't there: the Parent of each must not move the iterator.
    int skipped = 0;
    int photoCount = 0;
    int itemsOfLastPhoto = 0;
    int adoptedValues = 0;
    int photoElements = 0;
    std::vector<FoundItem> found;
    DoxIterator lastPhoto;
};
