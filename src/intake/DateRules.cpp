#include "intake/IntakeRule.h"

#include <algorithm>
#include <map>

namespace
{
std::string_view DateIn(const IntakePhoto& photo)
{
    return photo[IntakeItem::Date];
}

void TellDates(const IntakeDelivery& delivery,
               const std::function<bool(std::string_view date)>& isMeant, const TellSpot& tell)
{
    for (int i = 0; i < delivery.Count(); ++i) {
        const std::string_view date = DateIn(delivery.photos[static_cast<std::size_t>(i)]);
        if (!TrimmedLeft(date).empty() && isMeant(date))
            tell({.photo = i, .item = TitleOf(IntakeItem::Date), .detail = CString(date)});
    }
}

void TellForm(const IntakeDelivery& delivery, const TellSpot& tell)
{
    TellDates(
        delivery, [](std::string_view date) { return !HasFormOfDay(date); }, tell);
}

void TellNoDay(const IntakeDelivery& delivery, const TellSpot& tell)
{
    TellDates(
        delivery, [](std::string_view date) { return HasFormOfDay(date) && !DayOf(date); }, tell);
}

void TellFuture(const IntakeDelivery& delivery, const TellSpot& tell)
{
    TellDates(
        delivery,
        [&delivery](std::string_view date) {
            const std::optional<Day> day = DayOf(date);
            return day && *day > delivery.today;
        },
        tell);
}

void TellOutsidePeriod(const IntakeDelivery& delivery, const TellSpot& tell)
{
    const auto period = delivery.Period();
    TellDates(
        delivery,
        [&](std::string_view date) {
            const std::optional<Day> day = DayOf(date);
            return period && day && *day <= delivery.today &&
                   (*day < period->first || *day > period->second);
        },
        [&tell](IntakeSpot spot) {
            spot.detail.clear();
            tell(std::move(spot));
        });
}

/// The day that a camera's clock tells of a photograph, if it was ever set.
bool IsUnset(const CString& text)
{
    if (text.empty()) return false;
    constexpr std::string_view starts[] = {"0000",       "1970:01:01", "1980:01:01",
                                           "1999:12:31", "2000:01:01", "    "};
    return std::any_of(std::begin(starts), std::end(starts),
                       [&text](std::string_view start) { return text.starts_with(start); });
}

void TellUnsetClock(const IntakeDelivery& delivery, const TellSpot& tell)
{
    for (const NamedFile& file : delivery.files) {
        if (!file.isDrawing && IsUnset(file.exif.original))
            tell({.photo = file.photo, .detail = file.exif.original});
    }
}

void TellOtherDay(const IntakeDelivery& delivery, const TellSpot& tell)
{
    for (const NamedFile& file : delivery.files) {
        const auto& photo = delivery.photos[static_cast<std::size_t>(file.photo)];
        const std::optional<Day> told = DayOf(DateIn(photo));
        const std::optional<Moment> taken = MomentOf(file.exif.original);
        if (file.isDrawing || !told || !taken || IsUnset(file.exif.original)) continue;
        if (std::chrono::floor<std::chrono::days>(*taken) != *told)
            tell({.photo = file.photo, .item = TitleOf(IntakeItem::Date)});
    }
}

/// Tells all photographs with a time when there are enough of them and their clocks show one
/// minute.
void TellSameMinute(const IntakeDelivery& delivery, const TellSpot& tell)
{
    constexpr int fewest = 10;
    std::map<std::chrono::sys_time<std::chrono::minutes>, std::vector<int>> byMinute;
    for (const NamedFile& file : delivery.files) {
        const std::optional<Moment> taken = MomentOf(file.exif.original);
        if (!file.isDrawing && taken && !IsUnset(file.exif.original))
            byMinute[std::chrono::floor<std::chrono::minutes>(*taken)].push_back(file.photo);
    }
    if (byMinute.size() != 1 || std::ssize(byMinute.begin()->second) < fewest) return;
    for (const int photo : byMinute.begin()->second) tell({.photo = photo});
}

void TellChangedLater(const IntakeDelivery& delivery, const TellSpot& tell)
{
    for (const NamedFile& file : delivery.files) {
        const std::optional<Moment> taken = MomentOf(file.exif.original);
        const std::optional<Moment> changed = MomentOf(file.exif.changed);
        constexpr std::chrono::minutes slack{1};
        if (!file.isDrawing && taken && changed && *changed > *taken + slack)
            tell({.photo = file.photo});
    }
}

constexpr unsigned all = AllGenerations;
using enum IntakeGrade;
using enum IntakeNeed;

constexpr IntakeRule rules[] = {
    {"date-form", Error, all, AllOwners, Nothing, "撮影年月日が CCYY-MM-DD の形ではありません",
     "2023-06-01 のような形に直してもらう", TellForm},
    {"date-no-day", Error, all, AllOwners, Nothing, "撮影年月日が暦にない日です",
     "正しい日に直してもらう", TellNoDay},
    {"date-future", Hint, all, AllOwners, Nothing, "撮影年月日が今日より後です",
     "書き間違いでないか確かめる", TellFuture},
    {"date-outside-period", Warning, all, AllOwners, Period, "撮影年月日が工期の外です",
     "撮影日と工期を受注者に確かめる", TellOutsidePeriod},
    {"date-other-than-exif", Hint, all, AllOwners, Files, "撮影年月日がExifの撮影日と違います",
     "カメラの時計か記入の間違いを確かめる", TellOtherDay},
    {"clock-unset", Hint, all, AllOwners, Files, "カメラの時計が合わせられていません",
     "撮影年月日を黒板などで確かめる", TellUnsetClock},
    {"clock-same-minute", Hint, all, AllOwners, Files, "どの写真のExifの撮影時刻も同じ分です",
     "カメラの時計と、書き込まれた時刻か確かめる", TellSameMinute},
    {"exif-changed-later", Hint, all, AllOwners, Files, "Exifの変更日時が撮影日時より後です",
     "どのソフトで書き直されたか確かめる", TellChangedLater},
};
} // namespace

std::span<const IntakeRule> DateRules()
{
    return rules;
}
