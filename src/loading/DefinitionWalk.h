#pragma once

#include "document/ToviItem.h"
#include "loading/ToviItemDef.h"
#include "platform/DoxIterator.h"

/// What the three walkers over PHOTO.XML share: a position in the definitions that advances in step
/// with the place of the iterator. Positions outside the list throw InvalidArgument.
class DefinitionWalk
{
public:
    /// Starts at the definition \p first. Items go to \p values.
    DefinitionWalk(const ToviItemDef& definitions, DoxIterator& iterator, ToviItemArray& values,
                   int first);

    int Index() const { return index; }
    void Index(int position) { index = position; }
    const Definition& Current() const { return def.GetDef(index); }
    bool TagMatches() const { return it.IsTag(Current().title); }
    bool IsMandatory() const;
    bool IsUnneeded() const { return Current().grade == GradeUnneeded; }

    /// Inside the blocks: whether the iterator moves on past a single element that isn't there.
    bool AbsentMoves() const;

    /// Stores the element on which the iterator stands. Where the definition lets it repeat, the
    /// whole run is stored and the iterator ends on the first element behind it.
    void Store();
    /// Stores an empty value for an element that isn't there.
    void StoreEmpty();
    /// Passes a block that isn't there: an optional one with all that is in it. Of a mandatory one
    /// the elements are missed one by one, and \p skipped counts up: the Parent of each such block
    /// must not move the iterator.
    void PassAbsentBlock(int& skipped);
    /// Advances to the Parent that closes the block which the current definition opens.
    void SkipBlock();
    /// Advances to the next Parent, whatever opens in between.
    void SkipToParent();

    ToviItemArray& Items() { return items; }

private:
    const ToviItemDef& def;
    DoxIterator& it;
    ToviItemArray& items;
    int index;
};
