#include "intake/Coverage.h"

#include "photos/ToviPhoto.h"

#include <map>
#include <tuple>

namespace
{
using enum IntakeItem;

constexpr const char* before = "着手前";
constexpr const char* after = "完成";
constexpr const char* progress = "施工状況写真";
constexpr const char* dimensions = "出来形管理写真";

/// Photographs of one place or work that go together.
struct Partners
{
    CString where;
    std::vector<int> first;
    std::vector<int> second;
};

/// Partners by where they are, in the order of their first photograph.
class PartnerTable
{
public:
    Partners& At(const CString& where)
    {
        const auto [found, isNew] = places.try_emplace(where, partners.size());
        if (isNew) partners.push_back({.where = where, .first = {}, .second = {}});
        return partners[found->second];
    }
    const std::vector<Partners>& All() const { return partners; }

private:
    std::map<CString, std::size_t> places;
    std::vector<Partners> partners;
};

bool Holds(std::string_view text, std::initializer_list<const char*> words)
{
    for (const char* word : words) {
        if (text.find(word) != std::string_view::npos) return true;
    }
    return false;
}

/// 着手前及び完成写真 says only in its title which of the two it is; with NEXCO each has a
/// 写真区分.
CString StageOf(const IntakePhoto& photo)
{
    const std::string_view category = photo[Category];
    if (category == "着手前写真") return before;
    if (category == "完成写真") return after;
    if (category != "着手前及び完成写真") return {};
    const std::string_view title = photo[Title];
    const bool isBefore = Holds(title, {"着手前", "着工前", "施工前", "工事前"});
    const bool isAfter = Holds(title, {"完成", "竣工", "しゅん工", "施工後", "完了"});
    if (isBefore == isAfter) return {};
    return isBefore ? before : after;
}

void AddMissing(const PartnerTable& table, const char* first, const char* second, bool bothWays,
                std::vector<MissingPartner>& missing)
{
    for (const Partners& partners : table.All()) {
        if (partners.second.empty() && !partners.first.empty()) {
            missing.push_back({partners.where, first, second, partners.first});
        } else if (bothWays && partners.first.empty() && !partners.second.empty()) {
            missing.push_back({partners.where, second, first, partners.second});
        }
    }
}

std::vector<MissingPartner> FindMissing(const IntakeDelivery& delivery)
{
    PartnerTable places;
    PartnerTable works;
    for (int i = 0; i < delivery.Count(); ++i) {
        const IntakePhoto& photo = delivery.photos[static_cast<std::size_t>(i)];
        const CString stage = StageOf(photo);
        const CString place = Trimmed(photo[Place]);
        if (!stage.empty() && !place.empty()) {
            Partners& partners = places.At(place);
            (stage == before ? partners.first : partners.second).push_back(i);
        }
        const bool isProgress = photo[Category] == progress;
        if (photo[WorkType].empty() || (!isProgress && photo[Category] != dimensions)) continue;
        const CString work = CString(photo[WorkType]) + " / " + CString(photo[Kind]) + " / " +
                             CString(photo[Detail]);
        Partners& partners = works.At(work);
        (isProgress ? partners.first : partners.second).push_back(i);
    }
    std::vector<MissingPartner> missing;
    AddMissing(places, before, after, true, missing);
    AddMissing(works, progress, dimensions, false, missing);
    return missing;
}

void Tally(const IntakePhoto& photo, const ToviPhoto& reviewed, CoverageRow& row)
{
    ++row.count;
    if (photo[KeyPhoto] == "1") ++row.key;
    if (photo[Frequency] == "1") ++row.submitted;
    if (!reviewed.IsNotCheck()) ++row.judged;
    if (reviewed.HasNGLabel()) ++row.ng;
}
} // namespace

Coverage CountCoverage(const IntakeDelivery& delivery)
{
    Coverage coverage;
    std::map<std::array<std::string_view, 4>, std::size_t> places;
    for (int i = 0; i < delivery.Count(); ++i) {
        const IntakePhoto& photo = delivery.photos[static_cast<std::size_t>(i)];
        const std::array key = {photo[WorkType], photo[Kind], photo[Detail], photo[Category]};
        const auto [found, isNew] = places.try_emplace(key, coverage.rows.size());
        if (isNew) {
            coverage.rows.push_back({.workType = CString(key[0]),
                                     .kind = CString(key[1]),
                                     .detail = CString(key[2]),
                                     .category = CString(key[3])});
        }
        Tally(photo, *delivery.document.GetPhotoActualPhotoArray(i), coverage.rows[found->second]);
    }
    coverage.missing = FindMissing(delivery);
    return coverage;
}
