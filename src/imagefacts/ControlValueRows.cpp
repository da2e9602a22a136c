#include "imagefacts/ControlValueRows.h"

std::vector<const ToviControlValue*> ControlValueRows(const ToviControlValues& values)
{
    const bool isMereName = values.GetSize() == 1 && values[0]->IsNameOnly();
    if (isMereName || !values.IsValid()) return {};
    std::vector<const ToviControlValue*> rows;
    for (const auto& value : values) {
        if (!value->IsBlank()) rows.push_back(value.get());
    }
    return rows;
}

bool IsShownAsTable(const ToviControlValues& values)
{
    return !ControlValueRows(values).empty();
}
