#include "intake/DateLadder.h"

#include "platform/files/FileStatus.h"
#include "platform/files/MibFile.h"
#include "platform/host/WorkAhead.h"

#include <algorithm>
#include <map>

namespace
{
using std::chrono::days;
using std::chrono::hours;
using std::chrono::minutes;

/// A photograph with what its rungs tell as days and moments.
struct Ladder
{
    ExifEvidence evidence;
    CString file;
    std::optional<Day> told;
    std::optional<Moment> taken;
    bool isUnset = false;
};

/// What a finding is told of, and what it is told with.
struct Judging
{
    const IntakeDelivery& delivery;
    const std::vector<Ladder>& ladders;
    std::vector<DatedPhoto>& photos;

    void Add(std::size_t photo, const char* kind, bool isFact, CString text) const
    {
        photos[photo].findings.push_back({kind, isFact, std::move(text)});
    }
};

/// Exif's form of a moment as the others are written; what is none stays as it is.
CString Written(const CString& exif)
{
    CString text = exif;
    if (MomentOf(text)) text[4] = text[7] = '-';
    return text;
}

CString DayText(Day day)
{
    const std::chrono::year_month_day calendar(day);
    return Format("%04d-%02u-%02u", static_cast<int>(calendar.year()),
                  static_cast<unsigned>(calendar.month()), static_cast<unsigned>(calendar.day()));
}

Day DayIn(Moment moment)
{
    return std::chrono::floor<days>(moment);
}

/// Of a clock that nobody has set.
bool IsUnset(const CString& text)
{
    constexpr std::string_view starts[] = {"0000", "1970:01:01", "1980:01:01", "1999:12:31",
                                           "2000:01:01"};
    return std::any_of(std::begin(starts), std::end(starts),
                       [&text](std::string_view start) { return text.starts_with(start); });
}

void JudgeTold(const Judging& judging, std::size_t i)
{
    const CString& text = judging.photos[i].rungs.told;
    const std::optional<Day>& told = judging.ladders[i].told;
    if (!told) {
        if (!text.empty()) judging.Add(i, "no-day", true, "撮影年月日が日を表していません");
        return;
    }
    if (*told > judging.delivery.today) {
        judging.Add(i, "future", true, "撮影年月日が今日より後です");
        return;
    }
    const auto period = judging.delivery.Period();
    if (period && (*told < period->first || *told > period->second)) {
        judging.Add(i, "outside-period", true,
                    "撮影年月日が工期（" + DayText(period->first) + "～" + DayText(period->second) +
                        "）の外です");
    }
}

void JudgeExif(const Judging& judging, std::size_t i)
{
    const Ladder& ladder = judging.ladders[i];
    if (ladder.isUnset) {
        judging.Add(i, "clock-unset", false, "カメラの時計が合わせられていません");
        return;
    }
    if (!ladder.taken) return;
    const Day taken = DayIn(*ladder.taken);
    if (taken > judging.delivery.today) {
        judging.Add(i, "exif-future", true, "Exifの撮影日が今日より後です");
    }
    if (ladder.told && *ladder.told != taken) {
        const auto apart = static_cast<int>((taken - *ladder.told).count());
        judging.Add(i, "exif-differs", true,
                    Format("Exifの撮影日が撮影年月日と%+d日違います", apart));
    }
}

void JudgeOtherClocks(const Judging& judging, std::size_t i)
{
    const Ladder& ladder = judging.ladders[i];
    if (!ladder.taken || ladder.isUnset) return;
    const auto differs = [&](const CString& text, minutes slack) {
        const std::optional<Moment> other = MomentOf(text);
        return other && (*other > *ladder.taken + slack || *other + slack < *ladder.taken);
    };
    if (differs(ladder.evidence.digitized, minutes(1))) {
        judging.Add(i, "digitized-differs", false, "Exifのデジタル化日時が撮影日時と違います");
    }
    if (differs(ladder.evidence.changed, minutes(1))) {
        judging.Add(i, "changed-differs", false, "Exifの変更日時が撮影日時と違います");
    }
    // Satellites tell UTC, cameras here the time of Japan; a camera may be an hour off.
    const std::optional<Moment> gps = MomentOf(ladder.evidence.gps);
    constexpr hours japan{9};
    constexpr hours slack{2};
    if (gps && std::chrono::abs(*gps + japan - *ladder.taken) > slack) {
        judging.Add(i, "gps-differs", false, "GPSの日時がカメラの時計と違います");
    }
}

void JudgeFile(const Judging& judging, std::size_t i)
{
    const Ladder& ladder = judging.ladders[i];
    const std::optional<Day> changed = DayOf(std::string_view(ladder.file).substr(0, 10));
    if (changed && ladder.told && *changed < *ladder.told) {
        judging.Add(i, "file-earlier", false, "ファイルの更新日が撮影年月日より前です");
    }
}

void JudgeSameMinute(const Judging& judging)
{
    constexpr std::size_t fewest = 10;
    std::map<std::chrono::sys_time<minutes>, std::vector<std::size_t>> byMinute;
    for (std::size_t i = 0; i < judging.ladders.size(); ++i) {
        const Ladder& ladder = judging.ladders[i];
        if (ladder.taken && !ladder.isUnset) {
            byMinute[std::chrono::floor<minutes>(*ladder.taken)].push_back(i);
        }
    }
    if (byMinute.size() != 1 || byMinute.begin()->second.size() < fewest) return;
    for (const std::size_t i : byMinute.begin()->second) {
        judging.Add(i, "same-minute", false, "どの写真のExifの撮影時刻も同じ分です");
    }
}

/// The middle one of \p numbers, which are not empty.
int Median(std::vector<int> numbers)
{
    const auto middle = numbers.begin() + std::ssize(numbers) / 2;
    std::nth_element(numbers.begin(), middle, numbers.end());
    return *middle;
}

/// A photograph whose day lies far from those of the photographs beside it in the file, which are
/// near to each other.
void JudgeNeighbours(const Judging& judging)
{
    constexpr std::ptrdiff_t reach = 4;
    constexpr std::size_t fewest = 4;
    constexpr int leastApart = 30;
    constexpr int timesTheirSpread = 6;
    std::vector<std::pair<std::size_t, int>> told;
    for (std::size_t i = 0; i < judging.ladders.size(); ++i) {
        if (const auto& day = judging.ladders[i].told) {
            told.emplace_back(i, static_cast<int>(day->time_since_epoch().count()));
        }
    }
    for (std::ptrdiff_t at = 0; at < std::ssize(told); ++at) {
        std::vector<int> beside;
        for (std::ptrdiff_t other = std::max<std::ptrdiff_t>(0, at - reach);
             other <= std::min(std::ssize(told) - 1, at + reach); ++other) {
            if (other != at) beside.push_back(told[static_cast<std::size_t>(other)].second);
        }
        if (beside.size() < fewest) continue;
        const int middle = Median(beside);
        for (int& day : beside) day = std::abs(day - middle);
        const auto& [photo, day] = told[static_cast<std::size_t>(at)];
        const int apart = std::abs(day - middle);
        if (apart > std::max(leastApart, timesTheirSpread * Median(beside))) {
            judging.Add(photo, "neighbours-differ", false,
                        Format("前後の番号の写真と%d日離れています", apart));
        }
    }
}

Ladder ReadLadder(const CString& path)
{
    Ladder ladder;
    if (path.empty()) return ladder;
    ladder.evidence = ReadExifEvidence(path);
    ladder.taken = MomentOf(ladder.evidence.original);
    ladder.isUnset = IsUnset(ladder.evidence.original);
    if (const std::optional<FileStatus> status = ReadFileStatus(path)) {
        ladder.file = ReplaceAll(LocalTimeText(status->lastWritten), "/", "-");
    }
    return ladder;
}

DateRungs RungsOf(const Ladder& ladder, std::string_view told)
{
    const ExifEvidence& evidence = ladder.evidence;
    const CString gps = Written(evidence.gps);
    return {Trimmed(told),
            Written(evidence.original),
            Written(evidence.digitized),
            Written(evidence.changed),
            gps.empty() ? gps : gps + "Z",
            ladder.file};
}

/// The paths of the photographs' own files by photo index; empty where none may be read.
std::vector<CString> PathsOf(const IntakeDelivery& delivery)
{
    std::vector<CString> paths(delivery.photos.size());
    for (const NamedFile& file : delivery.files) {
        if (!file.isDrawing) paths[static_cast<std::size_t>(file.photo)] = file.path;
    }
    return paths;
}
} // namespace

std::vector<DatedPhoto> ReadDateLadder(const IntakeDelivery& delivery,
                                       const std::function<bool(int done, int all)>& tell)
{
    const std::vector<CString> paths = PathsOf(delivery);
    std::vector<Ladder> ladders(paths.size());
    constexpr int ahead = 16;
    bool goesOn = true;
    WorkAhead<Ladder>(
        delivery.Count(), ahead,
        [&](int number) {
            const CString& path = paths[static_cast<std::size_t>(number)];
            return ReadLadder(IsReadable(delivery, path) ? path : CString());
        },
        [&](int number, Ladder read) {
            ladders[static_cast<std::size_t>(number)] = std::move(read);
            return goesOn = tell(number + 1, delivery.Count());
        });
    if (!goesOn) return {};
    std::vector<DatedPhoto> photos(ladders.size());
    const Judging judging{delivery, ladders, photos};
    for (std::size_t i = 0; i < ladders.size(); ++i) {
        const std::string_view told = delivery.photos[i][IntakeItem::Date];
        ladders[i].told = DayOf(Trimmed(told));
        photos[i].rungs = RungsOf(ladders[i], told);
        for (const auto judge : {JudgeTold, JudgeExif, JudgeOtherClocks, JudgeFile}) {
            judge(judging, i);
        }
    }
    JudgeSameMinute(judging);
    JudgeNeighbours(judging);
    return photos;
}
