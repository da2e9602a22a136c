#include "loading/PhotoXmlReader.h"

#include "document/ToviData.h"
#include "loading/PhotoBlockWalk.h"
#include "loading/RepeatingBlockWalk.h"

PhotoXmlReader::PhotoXmlReader(ToviData& target, DoxDocument& xml,
                               std::function<void(const CString&)> report)
    : document(target), def(*target.GetItemDef()), it(&xml), progress(std::move(report))
{}

bool PhotoXmlReader::Read()
{
    it.Root();
    DefinitionWalk walk(def, it, *document.GetMngItemPhoto(), 0);
    if (def.IsEmpty()) return true;
    if (!FindFirst(walk)) return false;
    for (; walk.Index() < def.GetCount(); walk.Index(walk.Index() + 1)) {
        if (walk.TagMatches()) {
            ReadMatch(walk);
        } else if (!PassAbsent(walk)) {
            return false;
        }
    }
    return true;
}

bool PhotoXmlReader::FindFirst(const DefinitionWalk& walk)
{
    while (!walk.TagMatches()) {
        if (!it.Next()) return false;
    }
    return true;
}

void PhotoXmlReader::ReadMatch(DefinitionWalk& walk)
{
    int index = walk.Index();
    if (walk.Current().readType == ReadPhotoItem) {
        PhotoBlockWalk(document, it, progress).LoadPhotoItem(index);
        walk.Index(index);
    } else if (walk.Current().blockPlural) {
        RepeatingBlockWalk(def, it, walk.Items()).LoadBlockPuralData(index);
        walk.Index(index);
    } else {
        walk.Store();
        Move(walk);
    }
}

bool PhotoXmlReader::PassAbsent(DefinitionWalk& walk)
{
    const Definition& current = walk.Current();
    if (current.count == CountNone) return false;
    if (current.operation == StepChild) {
        walk.PassAbsentBlock(skipped);
        return true;
    }
    // Unlike in the blocks, an optional element that isn't there takes the next one with it.
    walk.StoreEmpty();
    Move(walk);
    return true;
}

void PhotoXmlReader::Move(const DefinitionWalk& walk)
{
    const TreeStep operation = walk.Current().operation;
    if (operation == StepChild) {
        it.Child();
        return;
    }
    if (operation == StepParent) {
        if (skipped > 0) {
            --skipped;
        } else {
            it.Parent();
        }
    }
    it.NextSibling();
}
