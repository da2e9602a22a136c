#pragma once

#include "loading/DefinitionWalk.h"

#include <vector>

/// The definitions of the photographs: those of \p list from \p first up to the one before \p end.
struct DefinitionBlock
{
    const ToviItemDef& list;
    int first;
    int end;
};

/// What the walk over one photograph has left.
struct UnreadValues
{
    /// Values that have become items.
    int adopted = 0;
    /// Elements of a photograph inside this one.
    int nestedPhotos = 0;
};

/// Makes items of the values inside the element \p photo that none of the definitions \p block has
/// read, though it names them: they stand in another place than the definitions say. Each takes the
/// place of an item of its definition that stands for an absent element: of the next one behind the
/// values that precede it in the file, else of the first. Where there is none, it comes in behind
/// the items of its definition and those before that. Whatever was found, as \p found tells of
/// \p items, stays as it is; empty values and those of unneeded definitions (不要) are left.
UnreadValues AdoptUnreadValues(const DefinitionBlock& block, const DoxIterator& photo,
                               const std::vector<FoundItem>& found, ToviItemArray& items);
