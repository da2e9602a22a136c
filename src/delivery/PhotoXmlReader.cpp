#include "delivery/PhotoXmlReader.h"

#include "delivery/PhotoBlockWalk.h"
#include "delivery/ToviData.h"
#include "loading/RepeatingBlockWalk.h"

namespace
{
DoxIterator RootOf(DoxDocument& xml)
{
    DoxIterator root(&xml);
    root.Root();
    return root;
}
} // namespace

PhotoXmlReader::PhotoXmlReader(ToviData& target, DoxDocument& xml,
                               std::function<void(const CString&)> report)
    : document(target), def(*target.GetItemDef()), root(RootOf(xml)), it(root),
      progress(std::move(report))
{}

bool PhotoXmlReader::Read()
{
    if (def.IsEmpty()) return true;
    DefinitionWalk walk(def, it, *document.GetMngItemPhoto(), 0);
    if (!FindFirst(walk)) return false;
    for (; walk.Index() < def.GetCount(); walk.Index(walk.Index() + 1)) {
        const bool goesOn =
            ReadPhotos(walk) || (walk.TagMatches() ? ReadMatch(walk) : PassAbsent(walk));
        if (!goesOn) return false;
    }
    return true;
}

bool PhotoXmlReader::FindFirst(DefinitionWalk& walk)
{
    do {
        if (walk.TagMatches()) return true;
    } while (it.Next());
    // The photographs are worth reading without what should stand in front of them.
    for (int i = 0; i < def.GetCount(); ++i) {
        walk.Index(i);
        if (def.GetDef(i).readType == ReadPhotoItem)
            return FindPhoto(def.GetDef(i).title).has_value();
    }
    return false;
}

bool PhotoXmlReader::ReadPhotos(DefinitionWalk& walk)
{
    if (hasLookedForPhotos || walk.Current().readType != ReadPhotoItem) return false;
    hasLookedForPhotos = true;
    const CString& tag = walk.Current().title;
    const std::optional<DoxIterator> first = FindPhoto(tag);
    if (!first) return false;
    const DoxIterator before = it;
    it = *first;
    PhotoBlockWalk photos(document, it, progress);
    LoadPhotos(photos, walk);
    // Photographs can stand in front of what should stand in front of them.
    if (it.Position() < before.Position()) it = before;
    CountPhotos(photos, *first, tag);
    return true;
}

std::optional<DoxIterator> PhotoXmlReader::FindPhoto(const CString& tag) const
{
    DoxIterator at = it;
    at.Parent();
    at.Child();
    do {
        if (at.IsTag(tag)) return at;
    } while (at.NextSibling());
    at = root;
    do {
        if (at.IsTag(tag)) return at;
    } while (at.Next());
    return std::nullopt;
}

void PhotoXmlReader::LoadPhotos(PhotoBlockWalk& photos, DefinitionWalk& walk)
{
    int index = walk.Index();
    photos.LoadPhotoItem(index);
    walk.Index(index);
}

void PhotoXmlReader::CountPhotos(const PhotoBlockWalk& photos, const DoxIterator& first,
                                 const CString& tag)
{
    ReadingCounts counts;
    counts.adoptedValues = photos.AdoptedValues();
    counts.photoElements = photos.PhotoElements();
    DoxIterator at = root;
    for (bool goesOn = true; goesOn;) {
        if (at == first) {
            at = photos.LastPhoto();
            goesOn = at.NextOutside();
        } else {
            counts.photoElements += at.IsTag(tag) ? 1 : 0;
            goesOn = at.Next();
        }
    }
    document.SetReadingCounts(counts);
}

bool PhotoXmlReader::ReadMatch(DefinitionWalk& walk)
{
    if (walk.Current().readType == ReadPhotoItem) {
        PhotoBlockWalk photos(document, it, progress);
        LoadPhotos(photos, walk);
    } else if (walk.Current().blockPlural) {
        RepeatingBlockWalk(walk).LoadBlockPuralData();
    } else {
        walk.Store();
        if (walk.Current().operation != StepChild) {
            Move(walk);
        } else if (!walk.Child()) {
            if (!walk.PassEmptyBlock(def.GetCount())) return false;
            walk.NextSibling();
        }
    }
    return true;
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

void PhotoXmlReader::Move(DefinitionWalk& walk)
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
