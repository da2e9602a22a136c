#include "loading/RepeatingBlockWalk.h"

RepeatingBlockWalk::RepeatingBlockWalk(const ToviItemDef& definitions, DoxIterator& iterator,
                                       ToviItemArray& values)
    : def(definitions), it(iterator), items(values)
{}

bool RepeatingBlockWalk::LoadBlockPuralData(int& index)
{
    DefinitionWalk walk(def, it, items, index);
    walk.SkipToParent();
    const int end = walk.Index() + 1;
    bool goesOn = true;
    while (goesOn) {
        const std::ptrdiff_t start = it.Position();
        walk.Index(index);
        if (!ReadOccurrence(walk, end)) return false;
        // An element that nobody expects must not be tried for ever.
        goesOn = !walk.TagMatches() && siblingOk && it.Position() > start;
    }
    index = walk.Index() - 1;
    return true;
}

bool RepeatingBlockWalk::ReadOccurrence(DefinitionWalk& walk, int end)
{
    while (walk.Index() < end) {
        if (walk.TagMatches()) {
            walk.Store();
            Move(walk);
        } else if (!PassAbsent(walk)) {
            return false;
        }
        walk.Index(walk.Index() + 1);
    }
    return true;
}

bool RepeatingBlockWalk::PassAbsent(DefinitionWalk& walk)
{
    const Definition& current = walk.Current();
    if (current.count == CountNone) return false;
    if (current.operation == StepChild) {
        if (!walk.IsMandatory()) walk.SkipToParent();
        return true;
    }
    walk.StoreEmpty();
    if (walk.AbsentMoves()) Move(walk);
    return true;
}

void RepeatingBlockWalk::Move(const DefinitionWalk& walk)
{
    const TreeStep operation = walk.Current().operation;
    if (operation == StepChild) {
        it.Child();
        return;
    }
    if (operation == StepParent) it.Parent();
    siblingOk = it.NextSibling();
}
