#pragma once

#include "items/ToviItem.h"
#include "items/ToviItemDef.h"
#include "platform/xml/DoxIterator.h"

#include <vector>

/// An item that was found in the file, unlike one that stands for an absent element.
struct FoundItem
{
    DoxIterator element;
    /// Its index among the items of the walk.
    int item;
};

/// What the three walkers over PHOTO.XML share: a position in the definitions that advances in step
/// with the place of the iterator. Positions outside the list throw InvalidArgument.
class DefinitionWalk
{
public:
    /// Starts at the definition \p first, with \p iterator on the element that holds all that is
    /// walked: it never leaves that again. Items go to \p values, and those that were found to
    /// \p foundItems, which may be null.
    DefinitionWalk(const ToviItemDef& definitions, DoxIterator& iterator, ToviItemArray& values,
                   int first, std::vector<FoundItem>* foundItems = nullptr);

    int Index() const { return index; }
    void Index(int position) { index = position; }
    const Definition& Current() const { return def.GetDef(index); }
    const Definition& At(int position) const { return def.GetDef(position); }
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
    /// Passes the definitions in a block that is there without elements, up to the Parent that
    /// closes it or to \p end: all that would store miss their elements. False when one of them
    /// must not.
    bool PassEmptyBlock(int end);
    /// Advances to the Parent that closes the block which the current definition opens.
    void SkipBlock();
    /// Advances to the next Parent, whatever opens in between.
    void SkipToParent();

    /// The iterator's moves. What isn't there or outside leaves it in place.
    bool Child();
    void Parent();
    bool NextSibling();
    std::ptrdiff_t Position() const { return it.Position(); }
    /// At the end of the walk: every element was read or entered.
    bool HasReadAll() const { return it == top && isRead && !hasPassedUnread; }

private:
    void StoreOne();

    const ToviItemDef& def;
    DoxIterator& it;
    const DoxIterator top;
    ToviItemArray& items;
    std::vector<FoundItem>* found;
    int index;
    /// The element on which the iterator stands was read or entered.
    bool isRead = false;
    bool hasPassedUnread = false;
};
