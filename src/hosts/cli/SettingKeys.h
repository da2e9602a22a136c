#pragma once

#include "delivery/ToviData.h"
#include "extraction/ToviSortCondition.h"
#include "items/ToviItemManager.h"
#include "items/ToviPhotoCtrlVisualSetting.h"
#include "review/ToviLabelManager.h"
#include "work/ReadingLimit.h"

/// The user's settings, apart from whatever keeps them.
struct UserSettings
{
    ToviPhotoCtrlVisualSetting visual;
    ToviLabelManager labels;
    ToviSortCondition sort;
    /// In MiB, see ReadingLimit.
    int readingLimit = ReadingLimit::usual;
    /// In MiB, see PictureMemory.
    int pictureMemory = PictureMemory::usual;
    /// Empty as long as no delivery says which items there are.
    ToviItemManager items;
};

/// One setting by the name that the command line has for it.
struct SettingKey
{
    CString name;
    /// What it is, in a few words, and its values.
    CString meaning;
    CString values;
    CString (*get)(const UserSettings& settings, const SettingKey& key);
    /// False when \p value is none of the values.
    bool (*set)(UserSettings& settings, const SettingKey& key, const CString& value);
    /// The slot of a label; not used by the others.
    unsigned int slot = 0;
};

/// All settings but the items, in the order in which they are shown.
const std::vector<SettingKey>& SettingKeys();

/// Sets what "KEY=VALUE" says; KEY is the name of a setting, or "item:" and the title of an item.
/// Returns what is wrong in a sentence, empty when nothing is; \p settings are unchanged then.
CString SetByKey(UserSettings& settings, const CString& assignment);
