#include "windows/cell/InfoRows.h"

#include "imagefacts/ToviControlValueArray.h"

#include <algorithm>

/// What a few characters need; a list that is narrower scrolls.
static constexpr int smallestColumnWidth = 60;

std::vector<std::vector<CString>> InfoRows(const ToviItemShowSettings& settings,
                                           const ToviTextPairArray& pairs)
{
    std::vector<std::vector<CString>> rows;
    for (const ToviItemShowSetting& setting : settings) {
        if (setting.title == controlValueTitle) continue;
        CStringArray values;
        pairs.GetValue(setting.title, values);
        for (const CString& value : values) rows.push_back({setting.title, value});
    }
    return rows;
}

std::pair<int, int> InfoColumnWidths(int width, bool showTitle, bool isBeside)
{
    const int titles = std::max(width / 2, smallestColumnWidth);
    const int values = std::max(width - width / 2, smallestColumnWidth);
    if (showTitle) return {titles, values};
    return {0, isBeside ? values / 3 : values};
}
