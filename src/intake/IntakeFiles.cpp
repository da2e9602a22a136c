#include "intake/IntakeFiles.h"

#include "items/ToviItemDef.h"
#include "kinds/IndexStylesheets.h"
#include "loading/DeliveryLocation.h"
#include "photos/ToviPhoto.h"
#include "platform/files/CaseFallback.h"
#include "platform/files/MibFile.h"
#include "platform/host/WorkAhead.h"
#include "platform/xml/DoxDocument.h"
#include "platform/xml/DoxIterator.h"

#include <algorithm>
#include <charconv>
#include <numeric>
#include <set>
#include <unordered_set>

namespace
{
constexpr const char* photographFolder = "PIC/";
constexpr const char* drawingFolder = "DRA/";
constexpr const char* drawingTitles[] = {"参考図1", "参考図2", "参考図3", "参考図ファイル名"};

IntakeFolder ListIntakeFolder(const CString& path)
{
    IntakeFolder folder;
    folder.isThere = MibIsFolderExist(path);
    folder.names = ListFolder(ExistingPath(path));
    for (const CString& name : folder.names) folder.byFolded.emplace(FoldCase(name), name);
    return folder;
}

IntakeDisc DiscAt(int number, const CString& photoFolder)
{
    CString root = MibAbsolutePath(photoFolder);
    MibParentDir(root);
    return {number,
            root,
            photoFolder,
            ListIntakeFolder(root),
            ListIntakeFolder(photoFolder),
            ListIntakeFolder(photoFolder + photographFolder),
            ListIntakeFolder(photoFolder + drawingFolder)};
}

std::optional<int> NumberIn(const CString& text)
{
    const CString digits = Trimmed(text);
    int number = 0;
    const auto [at, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (error != std::errc() || at != digits.data() + digits.size()) return std::nullopt;
    return number;
}

/// A text of the index file, and where it goes.
struct IndexText
{
    const char* tag;
    void (*take)(IntakeIndex& index, const CString& text);
};

void TakeFirst(CString& place, const CString& text)
{
    if (place.empty()) place = Trimmed(text);
}

constexpr IndexText indexTexts[] = {
    {"メディア番号", [](IntakeIndex& i, const CString& text) { i.mediaNumber = NumberIn(text); }},
    {"メディア総枚数", [](IntakeIndex& i, const CString& text) { i.mediaCount = NumberIn(text); }},
    {"写真フォルダ名", [](IntakeIndex& i, const CString& text) { TakeFirst(i.photoFolder, text); }},
    {"工事名称", [](IntakeIndex& i, const CString& text) { TakeFirst(i.workTitle, text); }},
    {"業務名称", [](IntakeIndex& i, const CString& text) { TakeFirst(i.workTitle, text); }},
    {"工期開始日", [](IntakeIndex& i, const CString& text) { TakeFirst(i.firstDay, text); }},
    {"工期終了日", [](IntakeIndex& i, const CString& text) { TakeFirst(i.lastDay, text); }},
    {"履行期間-着手", [](IntakeIndex& i, const CString& text) { TakeFirst(i.firstDay, text); }},
    {"履行期間-完了", [](IntakeIndex& i, const CString& text) { TakeFirst(i.lastDay, text); }},
};

/// The name between quotes behind SYSTEM in a DOCTYPE line; empty without one.
CString DtdIn(const CString& line)
{
    const std::size_t at = line.find("SYSTEM");
    const std::size_t open = line.find_first_of("\"'", at);
    if (at == CString::npos || open == CString::npos) return {};
    const std::size_t close = line.find(line[open], open + 1);
    return close == CString::npos ? CString() : line.substr(open + 1, close - open - 1);
}

IntakeIndex ReadIndex(const CString& path)
{
    IntakeIndex index;
    index.name = MibGetFileName(path);
    index.dtd = DtdIn(ReadIndexDoctypeLine(path));
    DoxDocument document;
    document.LimitSize(largestIndexFile);
    index.isReadable = document.Initiate() && document.Load(path, false, nullptr);
    DoxIterator element(&document);
    if (!index.isReadable || !element.Root()) return index;
    do {
        for (const IndexText& text : indexTexts) {
            if (element.IsTag(text.tag)) text.take(index, element.GetText());
        }
    } while (element.Next());
    return index;
}

/// True when \p name can be that of a file in its folder.
bool IsPlainName(const CString& name)
{
    return !name.empty() && name != "." && name != ".." &&
           name.find_first_of(std::string_view("/\\\0", 3)) == CString::npos;
}

const CString* FindOn(const IntakeDisc& disc, const NamedFile& file)
{
    return (file.isDrawing ? disc.drawings : disc.pictures).Find(file.name);
}

CString PathOn(const IntakeDisc& disc, const NamedFile& file, const CString& name)
{
    return disc.photoFolder + (file.isDrawing ? drawingFolder : photographFolder) + name;
}

/// The numbers of the discs that are at hand: those that are told, and those of which some file is
/// here all the same. Where all is on one, that one is meant to be here.
std::set<int> MediaAtHand(const IntakeDelivery& delivery, const std::vector<NamedFile>& files)
{
    std::set<int> atHand;
    std::set<int> all;
    for (const IntakeDisc& disc : delivery.discs) {
        if (disc.number > 0) atHand.insert(disc.number);
    }
    for (const NamedFile& file : files) {
        const int media = delivery.photos[static_cast<std::size_t>(file.photo)].media;
        all.insert(media);
        const bool isSomewhere =
            std::any_of(delivery.discs.begin(), delivery.discs.end(),
                        [&file](const IntakeDisc& disc) { return FindOn(disc, file) != nullptr; });
        if (isSomewhere && !file.isDrawing) atHand.insert(media);
    }
    if (all.size() == 1) atHand.insert(*all.begin());
    return atHand;
}

void FindPlace(const IntakeDelivery& delivery, const std::set<int>& atHand, NamedFile& file)
{
    const int media = delivery.photos[static_cast<std::size_t>(file.photo)].media;
    const bool hasSeveral = delivery.discs.size() > 1;
    bool isElsewhere = false;
    for (const IntakeDisc& disc : delivery.discs) {
        const CString* name = FindOn(disc, file);
        if (name == nullptr) continue;
        file.path = PathOn(disc, file, *name);
        isElsewhere = hasSeveral && media > 0 && disc.number != media;
        if (!isElsewhere) break;
    }
    if (!file.path.empty()) {
        file.place = isElsewhere ? NamedFile::OnOtherDisc : NamedFile::There;
    } else {
        const bool isMissed = media <= 0 || atHand.contains(media);
        file.place = isMissed ? NamedFile::Missing : NamedFile::OnAbsentDisc;
    }
}

std::vector<NamedFile> FilesInItems(const IntakeDelivery& delivery)
{
    std::vector<int> drawings;
    for (const char* title : drawingTitles) {
        const int index = delivery.def.GetIndexFromTitle(title);
        if (index >= 0) drawings.push_back(index);
    }
    std::vector<NamedFile> files;
    for (int i = 0; i < delivery.Count(); ++i) {
        const CString name(delivery.photos[static_cast<std::size_t>(i)][IntakeItem::PhotoName]);
        if (IsPlainName(name)) {
            files.push_back({.photo = i, .title = TitleOf(IntakeItem::PhotoName), .name = name});
        }
        for (const ToviItem& item : delivery.document.GetPhotoActualPhotoArray(i)->GetItems()) {
            const bool isDrawing =
                std::find(drawings.begin(), drawings.end(), item.GetDefIndex()) != drawings.end();
            if (!isDrawing || !IsPlainName(item.GetValue())) continue;
            files.push_back({.photo = i,
                             .isDrawing = true,
                             .title = delivery.def[item.GetDefIndex()].title,
                             .name = item.GetValue()});
        }
    }
    return files;
}

struct Examined
{
    bool leadsOutside = false;
    PictureExamination picture;
    ExifEvidence exif;
};

Examined Examine(const IntakeDelivery& delivery, const CString& path)
{
    Examined found;
    found.leadsOutside = !IsReadable(delivery, path);
    if (found.leadsOutside) return found;
    found.picture = ExaminePicture(path);
    found.exif = ReadExifEvidence(path);
    return found;
}
} // namespace

bool IsReadable(const IntakeDelivery& delivery, const CString& path)
{
    return std::any_of(
        delivery.discs.begin(), delivery.discs.end(),
        [&path](const IntakeDisc& disc) { return MibIsInside(disc.photoFolder, path); });
}

std::vector<IntakeDisc> FindIntakeDiscs(const CString& photoFolder)
{
    std::vector<IntakeDisc> discs;
    for (const auto& [number, folder] : FindDiscs(photoFolder)) {
        discs.push_back(DiscAt(number, folder));
    }
    if (discs.empty()) discs.push_back(DiscAt(0, photoFolder));
    return discs;
}

std::vector<IntakeIndex> ReadIntakeIndexes(std::vector<IntakeDisc>& discs)
{
    std::vector<IntakeIndex> indexes;
    for (std::size_t i = 0; i < discs.size(); ++i) {
        const CString path = FindIndexFile(discs[i].root);
        if (path.empty()) continue;
        indexes.push_back(ReadIndex(path));
        indexes.back().disc = i;
        const int told = indexes.back().mediaNumber.value_or(0);
        if (discs[i].number == 0 && told > 0) discs[i].number = told;
    }
    return indexes;
}

std::vector<NamedFile> FindNamedFiles(const IntakeDelivery& delivery)
{
    std::vector<NamedFile> files = FilesInItems(delivery);
    const std::set<int> atHand = MediaAtHand(delivery, files);
    for (NamedFile& file : files) FindPlace(delivery, atHand, file);
    return files;
}

bool ExamineFiles(IntakeDelivery& delivery, const std::function<bool(int done, int all)>& tell)
{
    // A drawing is named by many photographs and read once.
    std::unordered_map<CString, std::vector<NamedFile*>> byPath;
    std::vector<CString> paths;
    for (NamedFile& file : delivery.files) {
        if (file.path.empty()) continue;
        std::vector<NamedFile*>& named = byPath[file.path];
        if (named.empty()) paths.push_back(file.path);
        named.push_back(&file);
    }
    std::sort(paths.begin(), paths.end());
    const int count = static_cast<int>(paths.size());
    constexpr int ahead = 8;
    bool goesOn = true;
    WorkAhead<Examined>(
        count, ahead,
        [&](int number) { return Examine(delivery, paths[static_cast<std::size_t>(number)]); },
        [&](int number, Examined found) {
            for (NamedFile* file : byPath[paths[static_cast<std::size_t>(number)]]) {
                file->leadsOutside = found.leadsOutside;
                file->picture = found.picture;
                file->exif = found.exif;
            }
            return goesOn = tell(number + 1, count);
        });
    delivery.filesExamined = goesOn;
    return goesOn;
}
