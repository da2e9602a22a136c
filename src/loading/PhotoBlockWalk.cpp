#include "loading/PhotoBlockWalk.h"

#include "document/ToviData.h"
#include "loading/RepeatingBlockWalk.h"

namespace
{
constexpr int photosPerReport = 50;
}

PhotoBlockWalk::PhotoBlockWalk(ToviData& target, DoxIterator& iterator,
                               const std::function<void(const CString&)>& report)
    : document(target), def(*target.GetItemDef()), it(iterator), progress(report)
{}

bool PhotoBlockWalk::LoadPhotoItem(int& index)
{
    const int end = EndOfBlock(index);
    int last = index;
    int itemsOfLastPhoto = 0;
    bool goesOn = true;
    while (goesOn) {
        const std::ptrdiff_t start = it.Position();
        ToviItemArray items;
        items.Reserve(itemsOfLastPhoto);
        DefinitionWalk walk(def, it, items, index);
        if (!ReadPhoto(walk, end)) return false;
        last = walk.Index();
        itemsOfLastPhoto = items.GetSize();
        Append(std::move(items));
        ClimbBack();
        // A pass that did not get ahead in the file would read the same photograph for ever.
        goesOn = siblingOk && it.IsTag(def.GetDef(index).title) && it.Position() > start;
    }
    index = last - 1;
    return true;
}

int PhotoBlockWalk::EndOfBlock(int index) const
{
    int open = 0;
    int end = index;
    do {
        if (def.GetDef(end).operation == StepChild) ++open;
        if (def.GetDef(end).operation == StepParent) --open;
        if (open < 0)
            throw InvalidArgument("the photograph's definitions close more than they open");
        ++end;
    } while (end < def.GetCount() && def.GetDef(end).readType != ReadMngItem);
    return end;
}

bool PhotoBlockWalk::ReadPhoto(DefinitionWalk& walk, int end)
{
    skipped = 0;
    depth = 0;
    while (walk.Index() < end) {
        if (!walk.TagMatches()) {
            if (!PassAbsent(walk)) return false;
        } else if (walk.Current().blockPlural) {
            ReadRepeatingBlock(walk);
        } else {
            walk.Store();
            Move(walk);
        }
        walk.Index(walk.Index() + 1);
    }
    return true;
}

void PhotoBlockWalk::ReadRepeatingBlock(DefinitionWalk& walk)
{
    int index = walk.Index();
    RepeatingBlockWalk(def, it, walk.Items()).LoadBlockPuralData(index);
    walk.Index(index);
}

bool PhotoBlockWalk::PassAbsent(DefinitionWalk& walk)
{
    const Definition& current = walk.Current();
    if (current.count == CountNone) return false;
    if (current.operation == StepChild) {
        walk.PassAbsentBlock(skipped);
        return true;
    }
    walk.StoreEmpty();
    if (walk.AbsentMoves()) Move(walk);
    return true;
}

void PhotoBlockWalk::Move(const DefinitionWalk& walk)
{
    const TreeStep operation = walk.Current().operation;
    if (operation == StepChild) {
        it.Child();
        ++depth;
        return;
    }
    if (operation == StepParent) {
        if (skipped > 0) {
            --skipped;
        } else {
            --depth;
            it.Parent();
        }
    }
    siblingOk = it.NextSibling();
}

void PhotoBlockWalk::Append(ToviItemArray&& items)
{
    document.GetPhotoDataArray()->Add(new ToviPhoto(&document, std::move(items)));
    ++photoCount;
    if (photoCount % photosPerReport == 0) {
        progress(Format("写真データの読み込み　%d枚完了", photoCount));
    }
}

void PhotoBlockWalk::ClimbBack()
{
    // A repeating block that was given up in its middle can have led higher up than the walk went
    // down.
    for (; depth > 0; --depth) {
        it.Parent();
        siblingOk = it.NextSibling();
    }
}
