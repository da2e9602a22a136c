#include "intake/Days.h"

#include "platform/files/FileStatus.h"

#include <ctime>

namespace
{
/// The numbers that stand in \p text where \p form has digits; all else must be as in the form.
template <std::size_t count>
bool ReadNumbers(std::string_view text, std::string_view form, int (&numbers)[count])
{
    if (text.size() != form.size()) return false;
    std::size_t number = 0;
    for (std::size_t i = 0; i < form.size(); ++i) {
        const bool wantsDigit = form[i] == '0';
        const bool isDigit = text[i] >= '0' && text[i] <= '9';
        if (wantsDigit ? !isDigit : text[i] != form[i]) return false;
        if (!wantsDigit) continue;
        if (i > 0 && form[i - 1] != '0') ++number;
        numbers[number] = numbers[number] * 10 + (text[i] - '0');
    }
    return true;
}

std::optional<Day> DayFrom(const int* numbers)
{
    using namespace std::chrono;
    const year_month_day calendar = year(numbers[0]) / numbers[1] / numbers[2];
    if (!calendar.ok()) return std::nullopt;
    return Day(calendar);
}
} // namespace

std::optional<Day> DayOf(std::string_view text)
{
    int numbers[3] = {};
    if (!ReadNumbers(text, "0000-00-00", numbers)) return std::nullopt;
    return DayFrom(numbers);
}

bool HasFormOfDay(std::string_view text)
{
    int numbers[3] = {};
    return ReadNumbers(text, "0000-00-00", numbers);
}

Day Today()
{
    constexpr std::size_t dayLength = 10;
    const CString now = ReplaceAll(LocalTimeText(std::time(nullptr)), "/", "-");
    return DayOf(std::string_view(now).substr(0, dayLength)).value_or(Day());
}

std::optional<Moment> MomentOf(std::string_view text)
{
    int numbers[6] = {};
    if (!ReadNumbers(text, "0000:00:00 00:00:00", numbers)) return std::nullopt;
    const std::optional<Day> day = DayFrom(numbers);
    if (!day || numbers[3] > 23 || numbers[4] > 59 || numbers[5] > 59) return std::nullopt;
    return *day + std::chrono::hours(numbers[3]) + std::chrono::minutes(numbers[4]) +
           std::chrono::seconds(numbers[5]);
}
