#include "loading/DefinitionWalk.h"

DefinitionWalk::DefinitionWalk(const ToviItemDef& definitions, DoxIterator& iterator,
                               ToviItemArray& values, int first, std::vector<FoundItem>* foundItems)
    : def(definitions), it(iterator), top(iterator), items(values), found(foundItems), index(first)
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
    const DataCount count = Current().count;
    const bool repeats = !IsUnneeded() && (count == CountZeroOrMore || count == CountOneOrMore);
    do {
        StoreOne();
    } while (repeats && NextSibling() && TagMatches());
}

void DefinitionWalk::StoreOne()
{
    isRead = true;
    const bool isBlock = Current().operation == StepChild;
    if (isBlock && IsUnneeded()) return;
    CString text;
    const bool holdsElements = it.GetText(text);
    if (holdsElements && !isBlock) hasPassedUnread = true;
    if (IsUnneeded()) return;
    if (found != nullptr) found->push_back({it, items.GetSize()});
    items.Add(ToviItem(index, std::move(text)));
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

bool DefinitionWalk::PassEmptyBlock(int end)
{
    for (int open = 1; open > 0 && index + 1 < end;) {
        ++index;
        if (Current().count == CountNone) return false;
        if (Current().operation == StepChild) {
            PassAbsentBlock(open);
            continue;
        }
        StoreEmpty();
        if (Current().operation == StepParent) --open;
    }
    return true;
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

bool DefinitionWalk::Child()
{
    if (!it.Child()) return false;
    isRead = false;
    return true;
}

void DefinitionWalk::Parent()
{
    if (it == top) return;
    const bool isLast = !DoxIterator(it).NextSibling();
    if (!isRead || !isLast) hasPassedUnread = true;
    it.Parent();
    isRead = true;
}

bool DefinitionWalk::NextSibling()
{
    if (it == top || !it.NextSibling()) return false;
    if (!isRead) hasPassedUnread = true;
    isRead = false;
    return true;
}
