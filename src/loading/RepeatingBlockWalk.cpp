#include "loading/RepeatingBlockWalk.h"

bool RepeatingBlockWalk::LoadBlockPuralData()
{
    const int first = walk.Index();
    walk.SkipToParent();
    const int end = walk.Index() + 1;
    bool goesOn = true;
    while (goesOn) {
        const std::ptrdiff_t start = walk.Position();
        walk.Index(first);
        if (!ReadOccurrence(end)) {
            walk.Index(first);
            return false;
        }
        // An element that nobody expects must not be tried for ever.
        goesOn = !walk.TagMatches() && siblingOk && walk.Position() > start;
    }
    walk.Index(walk.Index() - 1);
    return true;
}

bool RepeatingBlockWalk::ReadOccurrence(int end)
{
    while (walk.Index() < end) {
        if (!(walk.TagMatches() ? ReadMatch(end) : PassAbsent())) return false;
        walk.Index(walk.Index() + 1);
    }
    return true;
}

bool RepeatingBlockWalk::ReadMatch(int end)
{
    walk.Store();
    if (walk.Current().operation != StepChild) {
        Move();
    } else if (!walk.Child()) {
        if (!walk.PassEmptyBlock(end)) return false;
        siblingOk = walk.NextSibling();
    }
    return true;
}

bool RepeatingBlockWalk::PassAbsent()
{
    const Definition& current = walk.Current();
    if (current.count == CountNone) return false;
    if (current.operation == StepChild) {
        if (!walk.IsMandatory()) walk.SkipToParent();
        return true;
    }
    walk.StoreEmpty();
    if (walk.AbsentMoves()) Move();
    return true;
}

void RepeatingBlockWalk::Move()
{
    if (walk.Current().operation == StepParent) walk.Parent();
    siblingOk = walk.NextSibling();
}
