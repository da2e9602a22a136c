#pragma once

#include "loading/DefinitionWalk.h"

/// Walks a block of elements that occurs several times, such as 付加情報 with one occurrence for
/// each reference drawing. The block ends where the element behind it is reached; a block within
/// the block is not known.
class RepeatingBlockWalk
{
public:
    RepeatingBlockWalk(const ToviItemDef& definitions, DoxIterator& iterator,
                       ToviItemArray& values);

    /// \p index enters as the position of the definition on whose tag the iterator stands, and
    /// leaves as the last definition of the block. False, with \p index unchanged, when an element
    /// that must not be absent is. Throws InvalidArgument when no definition follows the block.
    bool LoadBlockPuralData(int& index);

private:
    bool ReadOccurrence(DefinitionWalk& walk, int end);
    bool PassAbsent(DefinitionWalk& walk);
    void Move(const DefinitionWalk& walk);

    const ToviItemDef& def;
    DoxIterator& it;
    ToviItemArray& items;
    bool siblingOk = true;
};
