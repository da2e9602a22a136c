#pragma once

#include "loading/DefinitionWalk.h"

#include <functional>

class ToviData;

/// Walks the photographs: the block of definitions from 写真情報 up to the next one that belongs to
/// the delivery as a whole, once for each photograph.
class PhotoBlockWalk
{
public:
    /// \p report hears how many photographs have been read, at every fiftieth.
    PhotoBlockWalk(ToviData& target, DoxIterator& iterator,
                   const std::function<void(const CString&)>& report);

    /// \p index enters as the position of the definition on whose tag the iterator stands, and
    /// leaves as the last definition of the block. False, with \p index unchanged, when an element
    /// that must not be absent is: the photographs before stay, the one being read is dropped.
    /// Definitions that close more than they open throw InvalidArgument.
    bool LoadPhotoItem(int& index);

private:
    int EndOfBlock(int index) const;
    bool ReadPhoto(DefinitionWalk& walk, int end);
    void ReadRepeatingBlock(DefinitionWalk& walk);
    bool PassAbsent(DefinitionWalk& walk);
    void Move(const DefinitionWalk& walk);
    void Append(ToviItemArray&& items);
    void ClimbBack();

    ToviData& document;
    const ToviItemDef& def;
    DoxIterator& it;
    const std::function<void(const CString&)>& progress;
    /// Mandatory blocks that weren't there: the Parent of each must not move the iterator.
    int skipped = 0;
    /// Levels that the iterator stands below the photograph's element.
    int depth = 0;
    bool siblingOk = true;
    int photoCount = 0;
};
