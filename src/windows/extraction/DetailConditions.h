#pragma once

#include "extraction/ExtractionConditions.h"
#include "platform/text/Export.h"
#include "platform/text/Text.h"

#include <optional>

class ToviData;
class ToviItemDef;

/// The conditions of the detail window (詳細設定): up to three items with a text each, and a range
/// of dates.

/// The titles of the items that a photograph can be looked for by, in the order of the
/// definitions.
TOVI_EXPORT CStringArray DetailItemTitles(const ToviItemDef& definitions);

/// The values that the photographs have under the item titled \p title, each once in file order,
/// and at last missingValueTitle if one of them is empty.
TOVI_EXPORT CStringArray DetailItemValues(ToviData& document, const CString& title);

/// \p conditions without the items and dates of what is off.
TOVI_EXPORT ExtractionConditions WithoutWhatIsOff(ExtractionConditions conditions);

struct CalendarDay
{
    int year;
    int month;
    int day;

    bool operator==(const CalendarDay&) const = default;
};
/// The day of a date in \p text: the number in front of the first "-", the two characters behind
/// it, and the last two. Nothing without two "-"; the day need not exist.
TOVI_EXPORT std::optional<CalendarDay> ParseDay(const CString& text);
/// A day as YYYY-MM-DD.
TOVI_EXPORT CString DayText(const CalendarDay& day);

/// Why the conditions can't be taken, and where.
struct DetailFault
{
    /// The row of the item, or dates.
    int place;
    CString text;

    static constexpr int dates = 3;
    bool operator==(const DetailFault&) const = default;
};
/// The first fault of \p conditions in the order of the window; nothing when there is none.
TOVI_EXPORT std::optional<DetailFault> FaultOf(const ExtractionConditions& conditions);
