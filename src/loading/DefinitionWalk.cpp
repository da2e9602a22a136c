#include "loading/DefinitionWalk.h"

DefinitionWalk::DefinitionWalk(const ToviItemDef& definitions, DoxIterator& iterator,
                               ToviItemArray& values, int first)
    : def(definitions), it(iterator), items(values), index(first)
{}

bool DefinitionWalk::IsMandatory() const
{
    return Current().count == CountOne || Current().count == CountOneOrMore;
}

bool DefinitionWalk::AbsentMoves() const
{
    if (IsMandatory() || IsUnneeded()) return true;
    return Current().grade != GradeLinked && Current().operation == StepParent;
}

void DefinitionWalk::Store()
{
    const Definition& current = Current();
    if (current.grade == GradeUnneeded) return;
    const bool repeats = current.count == CountZeroOrMore || current.count == CountOneOrMore;
    do {
        items.Add(ToviItem(index, it.GetText()));
    } while (repeats && it.NextSibling() && it.IsTag(current.title));
}

void DefinitionWalk::StoreEmpty()
{
    if (!IsUnneeded()) items.Add(ToviItem(index, {}));
}

void DefinitionWalk::PassAbsentBlock(int& skipped)
{
    if (IsMandatory()) {
        ++skipped;
    } else {
        SkipBlock();
    }
}

void DefinitionWalk::SkipBlock()
{
    int open = 1;
    while (open > 0) {
        ++index;
        if (Current().operation == StepChild) ++open;
        if (Current().operation == StepParent) --open;
    }
}

void DefinitionWalk::SkipToParent()
{
    do {
        ++index;
    } while (Current().operation != StepParent);
}
