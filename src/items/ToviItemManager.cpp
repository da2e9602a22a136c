#include "items/ToviItemManager.h"

#include "platform/host/HostServices.h"

namespace
{
/// The titles that \p profile has as those of hidden items.
CStringArray HiddenIn(const ProfileStore& profile)
{
    const CString text = profile.GetProfileString(ToviItemManager::ShowSettingSection_,
                                                  ToviItemManager::ShowItemsEntry_, "");
    CStringArray hidden;
    std::size_t begin = 0;
    for (std::size_t comma; (comma = text.find(',', begin)) != CString::npos; begin = comma + 1) {
        hidden.Add(text.substr(begin, comma - begin));
    }
    if (begin < text.size()) hidden.Add(text.substr(begin));
    return hidden;
}

std::unordered_set<CString> Folded(const CStringArray& titles)
{
    std::unordered_set<CString> folded;
    for (const CString& title : titles) folded.insert(FoldCase(title));
    return folded;
}
} // namespace

bool ToviItemManager::Load(CStringArray& hidden)
{
    const ProfileStore* profile = GetHostServices().profile;
    if (profile == nullptr) return false;
    const CStringArray stored = HiddenIn(*profile);
    known = Folded(stored);
    for (const CString& title : stored) hidden.Add(title);
    return !stored.IsEmpty();
}

void ToviItemManager::TakeOver()
{
    CStringArray hidden;
    Load(hidden);
    const std::unordered_set<CString> folded = Folded(hidden);
    for (ToviItemShowSetting& item : itemShowSettings) {
        item.Bold(!folded.contains(FoldCase(item.title)));
    }
}

bool ToviItemManager::Save()
{
    ProfileStore* profile = GetHostServices().profile;
    if (profile == nullptr) return false;
    const auto write = [this, profile] {
        return profile->WriteProfileString(ShowSettingSection_, ShowItemsEntry_,
                                           HiddenAmong(Folded(HiddenIn(*profile))));
    };
    if (!profile->WriteTogether(write)) return false;
    known.emplace();
    for (const ToviItemShowSetting& item : itemShowSettings) {
        if (!item.bold) known->insert(FoldCase(item.title));
    }
    return true;
}

CString ToviItemManager::HiddenAmong(const std::unordered_set<CString>& stored) const
{
    CString hidden;
    for (const ToviItemShowSetting& item : itemShowSettings) {
        const CString title = FoldCase(item.title);
        const bool isUnchanged = known && known->contains(title) == !item.bold;
        if (isUnchanged ? !stored.contains(title) : item.bold) continue;
        if (!hidden.empty()) hidden += ',';
        hidden += item.title;
    }
    return hidden;
}
