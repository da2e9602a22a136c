#include "extraction/ConditionEntries.h"

#include <type_traits>

namespace
{
/// Calls \p visit with the name and the value of each condition.
template <class Conditions, class Visit>
void ForEach(Conditions& conditions, const Visit& visit)
{
    visit("extraction.keyPhoto", conditions.keyPhoto);
    visit("extraction.ngPhoto", conditions.ngPhoto);
    visit("extraction.notcheckPhoto", conditions.notcheckPhoto);
    visit("extraction.notExifinfo", conditions.notExifinfo);
    visit("extraction.neceNotwrite", conditions.neceNotwrite);
    for (std::size_t i = 0; i < conditions.itemOn.size(); ++i) {
        const CString item = "extraction.item" + std::to_string(i);
        visit(item + ".on", conditions.itemOn[i]);
        visit(item + ".title", conditions.itemTitle[i]);
        visit(item + ".text", conditions.itemText[i]);
    }
    visit("extraction.dateOn", conditions.dateOn);
    visit("extraction.dateKind", conditions.dateKind);
    visit("extraction.dateFrom", conditions.dateFrom);
    visit("extraction.dateTo", conditions.dateTo);
    visit("extraction.orMode", conditions.orMode);
}
} // namespace

ConditionEntries EntriesOf(const ExtractionConditions& conditions)
{
    ConditionEntries entries;
    ForEach(conditions, [&entries](const CString& name, const auto& value) {
        if constexpr (std::is_same_v<std::decay_t<decltype(value)>, CString>) {
            if (!value.empty()) entries[name] = value;
        } else if (value != 0) {
            entries[name] = std::to_string(static_cast<int>(value));
        }
    });
    return entries;
}

ExtractionConditions ConditionsIn(const ConditionEntries& entries)
{
    ExtractionConditions conditions;
    ForEach(conditions, [&entries](const CString& name, auto& value) {
        const auto found = entries.find(name);
        if (found == entries.end()) return;
        if constexpr (std::is_same_v<std::decay_t<decltype(value)>, CString>) {
            value = found->second;
        } else {
            value = found->second != "0";
        }
    });
    return conditions;
}
