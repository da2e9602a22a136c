#include "intake/IntakeDelivery.h"

#include "intake/IntakeFiles.h"
#include "intake/IntakeXmlWalk.h"
#include "items/ToviItemDef.h"
#include "photos/ToviPhoto.h"
#include "photos/ToviPhotoArray.h"

#include <charconv>

namespace
{
constexpr const char* titles[] = {"シリアル番号", "写真ファイル名", "メディア番号", "写真-大分類",
                                  "写真区分",     "工種",           "種別",         "細別",
                                  "写真タイトル", "撮影箇所",       "撮影年月日",   "代表写真",
                                  "提出頻度写真", "施工管理値"};
static_assert(std::size(titles) == static_cast<std::size_t>(IntakeItem::Count));

struct SectionRow
{
    const char* section;
    unsigned generation;
};

constexpr SectionRow sections[] = {
    {"国交省-11", Generation11}, {"国交省-14", Generation14}, {"国交省-16", Generation16},
    {"国交省-18", Generation18}, {"国交省-20", Generation20}, {"農水省-15", Generation14},
    {"農水省-17", Generation16}, {"農水省-23", Generation20}, {"NEXCO-14", Generation14},
    {"NEXCO-18", Generation16},  {"NEXCO-24", Generation18},
};

unsigned GenerationOf(const CString& section)
{
    for (const SectionRow& row : sections) {
        if (section == row.section) return row.generation;
    }
    return AllGenerations;
}

/// The year and month in an edition's code, as 202303 of 土木202303-01; 0 without one.
int MonthOf(const CString& standard)
{
    constexpr std::string_view digits = "0123456789";
    const std::size_t at = standard.find_first_of(digits);
    if (at == CString::npos) return 0;
    const std::size_t end = std::min(standard.find_first_not_of(digits, at), standard.size());
    int month = 0;
    constexpr std::size_t length = 6;
    if (end - at == length) {
        std::from_chars(standard.data() + at, standard.data() + end, month);
    }
    return month;
}

CString ItemOfWhole(ToviData& document, const char* title)
{
    const int index = document.GetItemDef()->GetIndexFromTitle(title);
    for (const ToviItem& item : *document.GetMngItemPhoto()) {
        if (item.GetDefIndex() == index) return Trimmed(item.GetValue());
    }
    return {};
}

/// The place of each definition's item among those that the rules know; -1 for others.
std::vector<int> PlacesOfItems(const ToviItemDef& def)
{
    std::vector<int> places(static_cast<std::size_t>(def.GetCount()), -1);
    for (std::size_t i = 0; i < std::size(titles); ++i) {
        const int index = def.GetIndexFromTitle(titles[i]);
        if (index >= 0) places[static_cast<std::size_t>(index)] = static_cast<int>(i);
    }
    return places;
}

int NumberIn(std::string_view text)
{
    int number = -1;
    const char* const end = text.data() + text.size();
    const auto [at, error] = std::from_chars(text.data(), end, number);
    return error == std::errc() && at == end ? number : -1;
}

IntakePhoto PhotoOf(const ToviPhoto& photo, const std::vector<int>& places)
{
    IntakePhoto found;
    for (const ToviItem& item : photo.GetItems()) {
        const int place = places[static_cast<std::size_t>(item.GetDefIndex())];
        if (place < 0) continue;
        std::string_view& value = found.values[static_cast<std::size_t>(place)];
        if (value.empty()) value = item.GetValue();
    }
    found.media = NumberIn(found[IntakeItem::Media]);
    return found;
}
} // namespace

const char* TitleOf(IntakeItem item)
{
    return titles[static_cast<std::size_t>(item)];
}

const CString* IntakeFolder::Find(const CString& name) const
{
    const auto found = byFolded.find(FoldCase(name));
    return found == byFolded.end() ? nullptr : &found->second;
}

IntakeOwner OwnerOf(PhotoXMLType family)
{
    switch (family) {
    case PhotoXMLMlit:
        return OwnerMlit;
    case PhotoXMLKowan:
        return OwnerKowan;
    case PhotoXMLMaff:
        return OwnerMaff;
    case PhotoXMLNexco:
        return OwnerNexco;
    }
    return OwnerMlit;
}

IntakeDelivery::IntakeDelivery(const OpenedDelivery& opened, IntakeOwner theOwner, Day theToday)
    : document(*opened.document), def(*opened.document->GetItemDef()), owner(theOwner),
      generation(GenerationOf(def.GetSection())), today(theToday),
      columns(*opened.document->GetPhotoDataArray()),
      standard(ItemOfWhole(document, "適用要領基準")), standardMonth(MonthOf(standard)),
      pictureFolderName(ItemOfWhole(document, "写真フォルダ名")),
      drawingFolderName(ItemOfWhole(document, "参考図フォルダ名"))
{
    const std::vector<int> places = PlacesOfItems(def);
    photos.reserve(static_cast<std::size_t>(document.GetTotalCountPhoto()));
    for (int i = 0; i < document.GetTotalCountPhoto(); ++i) {
        photos.push_back(PhotoOf(*document.GetPhotoActualPhotoArray(i), places));
    }
    discs = FindIntakeDiscs(opened.photoFolder);
    indexes = ReadIntakeIndexes(discs);
    xml = WalkPhotoXml(opened.photoFolder + "PHOTO.XML", def, Count());
    files = FindNamedFiles(*this);
}

std::optional<std::pair<Day, Day>> IntakeDelivery::Period() const
{
    for (const IntakeIndex& index : indexes) {
        const std::optional<Day> first = DayOf(index.firstDay);
        const std::optional<Day> last = DayOf(index.lastDay);
        if (first && last && *first <= *last) return std::pair(*first, *last);
    }
    return std::nullopt;
}

bool IntakeDelivery::Has(IntakeItem item) const
{
    return def.GetIndexFromTitle(TitleOf(item)) >= 0;
}

int IntakeDelivery::MediaCount() const
{
    for (const IntakeIndex& index : indexes) {
        if (index.mediaCount) return *index.mediaCount;
    }
    return 0;
}
