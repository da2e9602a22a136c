#include "settings/ToviItemManager.h"

#include "platform/HostServices.h"

bool ToviItemManager::Load(CStringArray& hidden)
{
    const ProfileStore* profile = GetHostServices().profile;
    if (profile == nullptr) return false;
    const CString text = profile->GetProfileString(ShowSettingSection_, ShowItemsEntry_, "");
    std::size_t begin = 0;
    for (std::size_t comma; (comma = text.find(',', begin)) != CString::npos; begin = comma + 1) {
        hidden.Add(text.substr(begin, comma - begin));
    }
    if (begin < text.size()) hidden.Add(text.substr(begin));
    return !text.empty();
}

bool ToviItemManager::Save()
{
    ProfileStore* profile = GetHostServices().profile;
    if (profile == nullptr) return false;
    CString hidden;
    for (const ToviItemShowSetting& item : itemShowSettings) {
        if (item.bold) continue;
        if (!hidden.empty()) hidden += ',';
        hidden += item.title;
    }
    return profile->WriteProfileString(ShowSettingSection_, ShowItemsEntry_, hidden);
}
