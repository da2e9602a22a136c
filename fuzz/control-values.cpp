// 施工管理値: any text is read, and the values written out again give the same values.

#include "Fuzz.h"

#include "imagefacts/ControlValueParser.h"
#include "imagefacts/ControlValueRows.h"

namespace
{
CString Written(const ToviControlValue& value)
{
    CString figures;
    const std::pair<const char*, const CString&> entries[] = {{"設計値 ", value.GetDesign()},
                                                              {"実測値 ", value.GetActual()},
                                                              {"差 ", value.GetDifference()}};
    for (const auto& [prefix, text] : entries) {
        if (text.empty()) continue;
        figures.append(figures.empty() ? "" : "・").append(prefix).append(text);
    }
    return value.GetName() + ':' + figures;
}

bool EndsInSeparator(const ToviControlValue& value)
{
    return value.GetDesign().ends_with("・") || value.GetActual().ends_with("・") ||
           value.GetDifference().ends_with("・");
}
} // namespace

void Try(std::string_view input)
{
    ToviControlValues values;
    ParseControlValues(input, values);
    Require(ControlValueRows(values).size() <= static_cast<std::size_t>(values.GetSize()),
            "no row without a value");
    for (const auto& value : values) {
        // A separator at the end belongs to the value only if something stands behind it.
        if (EndsInSeparator(*value)) continue;
        const std::unique_ptr<ToviControlValue> again = ParseControlValue(Written(*value));
        Require(again != nullptr, "what was read can be read again");
        Require(Written(*again) == Written(*value), "and is the same");
    }
}
