#include "windows/setup/SetUpRules.h"

#include "platform/text/Cp932.h"

#include <algorithm>
#include <iterator>

std::optional<unsigned int> FirstLongName(const LabelNames& names)
{
    for (unsigned int slot = 0; slot < labelCount; ++slot) {
        if (Cp932::ByteLength(names[slot]) > longestLabelName) return slot;
    }
    return {};
}

ToviPhotoCtrlVisualSetting::DivideType ModeChoice(int stored)
{
    using Setting = ToviPhotoCtrlVisualSetting;
    const bool known = stored >= Setting::DivideOne && stored <= Setting::DivideList;
    return known ? static_cast<Setting::DivideType>(stored) : Setting::DivideSix;
}

ToviPhotoCtrlVisualSetting::TitleShowType TitleChoice(int stored)
{
    using Setting = ToviPhotoCtrlVisualSetting;
    const bool known = stored == Setting::TitleFileName || stored == Setting::TitleJapaneseFileName;
    return known ? static_cast<Setting::TitleShowType>(stored) : Setting::TitlePhotoTitle;
}

bool HasInfoList(ToviPhotoCtrlVisualSetting::DivideType mode)
{
    return mode != ToviPhotoCtrlVisualSetting::DivideThumbnails &&
           mode != ToviPhotoCtrlVisualSetting::DivideList;
}

SortChoice SortChoiceOf(const ToviSortCondition& condition)
{
    if (!condition.IsExecSort()) return {};
    const bool known = std::ranges::any_of(
        sortKeys, [&condition](const char* key) { return condition.GetKeyItem() == key; });
    return {true, known ? condition.GetKeyItem() : CString(), !condition.IsAscending()};
}

ToviSortCondition Sorted(ToviSortCondition condition, const SortChoice& choice)
{
    condition.ExecSort(choice.sorts);
    if (!choice.sorts) {
        condition.SetKeyItem("");
    } else if (!choice.key.empty()) {
        condition.SetKeyItem(choice.key.c_str());
    }
    condition.Ascending(!choice.sorts || !choice.descending);
    return condition;
}
