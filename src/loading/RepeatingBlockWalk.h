#pragma once

#include "loading/DefinitionWalk.h"

/// Walks a block of elements that occurs several times, such as 付加情報 with one occurrence for
/// each reference drawing. The block ends where the element behind it is reached; a block within
/// the block is not known.
class RepeatingBlockWalk
{
public:
    /// \p surrounding, whose items and iterator are used, outlives the object.
    explicit RepeatingBlockWalk(DefinitionWalk& surrounding) : walk(surrounding) {}

    /// The surrounding walk enters at the definition on whose tag the iterator stands, and leaves
    /// at the last definition of the block. False, at the definition where it entered, when an
    /// element that must not be absent is. Throws InvalidArgument when no definition follows the
    /// block.
    bool LoadBlockPuralData();

private:
    bool ReadOccurrence(int end);
    bool ReadMatch(int end);
    bool PassAbsent();
    void Move();

    DefinitionWalk& walk;
    bool siblingOk = true;
};
