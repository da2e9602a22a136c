#include "delivery/PhotoBlockWalk.h"

#include "delivery/ToviData.h"
#include "loading/RepeatingBlockWalk.h"
#include "loading/UnreadValues.h"
#include "photos/ToviPhoto.h"
#include "photos/ToviPhotoArray.h"

namespace
{
constexpr int photosPerReport = 50;
}

PhotoBlockWalk::PhotoBlockWalk(ToviData& target, DoxIterator& iterator,
                               const std::function<void(const CString&)>& report)
    : document(target), def(*target.GetItemDef()), it(iterator), progress(report),
      lastPhoto(iterator)
{}

bool PhotoBlockWalk::LoadPhotoItem(int& index)
{
    const int end = EndOfBlock(index);
    std::optional<int> last;
    for (bool goesOn = true; goesOn;) {
        lastPhoto = it;
        ++photoElements;
        last = ReadPhoto(index, end);
        if (!last) return false;
        goesOn = GoToNext(def.GetDef(index).title);
    }
    index = *last - 1;
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

std::optional<int> PhotoBlockWalk::ReadPhoto(int index, int end)
{
    ToviItemArray items;
    items.Reserve(itemsOfLastPhoto);
    found.clear();
    DefinitionWalk walk(def, it, items, index, &found);
    if (!WalkPhoto(walk, end)) return std::nullopt;
    if (!walk.HasReadAll()) {
        const UnreadValues unread = AdoptUnreadValues({def, index, end}, lastPhoto, found, items);
        adoptedValues += unread.adopted;
        photoElements += unread.nestedPhotos;
    }
    itemsOfLastPhoto = items.GetSize();
    Append(std::move(items));
    return walk.Index();
}

bool PhotoBlockWalk::WalkPhoto(DefinitionWalk& walk, int end)
{
    skipped = 0;
    while (walk.Index() < end) {
        if (!(walk.TagMatches() ? ReadMatch(walk, end) : PassAbsent(walk))) return false;
        walk.Index(walk.Index() + 1);
    }
    return true;
}

bool PhotoBlockWalk::ReadMatch(DefinitionWalk& walk, int end)
{
    if (walk.Current().blockPlural) {
        RepeatingBlockWalk(walk).LoadBlockPuralData();
        return true;
    }
    walk.Store();
    if (walk.Current().operation != StepChild) {
        Move(walk);
    } else if (!walk.Child()) {
        if (!walk.PassEmptyBlock(end)) return false;
        walk.NextSibling();
    }
    return true;
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

void PhotoBlockWalk::Move(DefinitionWalk& walk)
{
    if (walk.Current().operation == StepParent) {
        if (skipped > 0) {
            --skipped;
        } else {
            walk.Parent();
        }
    }
    walk.NextSibling();
}

void PhotoBlockWalk::Append(ToviItemArray&& items)
{
    document.GetPhotoDataArray()->Add(new ToviPhoto(&document, std::move(items)));
    ++photoCount;
    if (photoCount % photosPerReport == 0) {
        progress(Format("写真データの読み込み　%d枚完了", photoCount));
    }
}

bool PhotoBlockWalk::GoToNext(const CString& tag)
{
    it = lastPhoto;
    if (!it.NextSibling()) return false;
    DoxIterator next = it;
    while (!next.IsTag(tag)) {
        if (!next.NextSibling()) return false;
    }
    for (; it != next; it.Next()) photoElements += it.IsTag(tag) ? 1 : 0;
    return true;
}
