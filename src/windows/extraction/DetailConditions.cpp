#include "windows/extraction/DetailConditions.h"

#include "delivery/ToviData.h"
#include "items/ToviItemDef.h"

#include <cstdlib>

CStringArray DetailItemTitles(const ToviItemDef& definitions)
{
    CStringArray titles;
    for (int index = 0; index < definitions.GetCount(); ++index) {
        const ShowSituation show = definitions[index].show;
        if (show == ShowMainList || show == ShowZoomDlg) titles.Add(definitions[index].title);
    }
    return titles;
}

CStringArray DetailItemValues(ToviData& document, const CString& title)
{
    CStringArray values;
    if (document.GetPhotoItemValue(title, values)) values.Add(missingValueTitle);
    return values;
}

ExtractionConditions WithoutWhatIsOff(ExtractionConditions conditions)
{
    for (std::size_t row = 0; row < conditions.itemOn.size(); ++row) {
        if (conditions.itemOn[row]) continue;
        conditions.itemTitle[row].clear();
        conditions.itemText[row].clear();
    }
    if (!conditions.dateOn) {
        conditions.dateKind = 0;
        conditions.dateFrom.clear();
        conditions.dateTo.clear();
    }
    return conditions;
}

std::optional<CalendarDay> ParseDay(const CString& text)
{
    const std::size_t first = text.find('-');
    if (first == CString::npos || text.find('-', first + 1) == CString::npos) return {};
    const auto number = [](const CString& digits) { return std::atoi(digits.c_str()); };
    return CalendarDay{number(text.substr(0, first)), number(text.substr(first + 1, 2)),
                       number(text.substr(text.size() - 2))};
}

CString DayText(const CalendarDay& day)
{
    return Format("%04d-%02d-%02d", day.year, day.month, day.day);
}

std::optional<DetailFault> FaultOf(const ExtractionConditions& conditions)
{
    for (std::size_t row = 0; row < conditions.itemOn.size(); ++row) {
        if (!conditions.itemOn[row] || !conditions.itemText[row].empty()) continue;
        return DetailFault{static_cast<int>(row),
                           "抽出文字列が未入力です。抽出したい内容を記入してください。"};
    }
    if (conditions.dateOn && conditions.dateFrom > conditions.dateTo) {
        return DetailFault{DetailFault::dates,
                           "日付の設定に誤りがあります。\n"
                           "左側の日付は右側の日付を超えないように設定してください。"};
    }
    return {};
}
