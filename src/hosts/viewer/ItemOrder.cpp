#include "hosts/viewer/ItemOrder.h"

#include "items/ToviItemShowSettings.h"
#include "platform/host/HostServices.h"

#include <algorithm>
#include <sstream>
#include <unordered_map>

namespace
{
constexpr const char* section = "Viewer";
constexpr const char* entry = "ItemOrder";
constexpr char separator = ',';

std::unordered_map<std::string, int> KeptPlaces()
{
    std::unordered_map<std::string, int> places;
    const ProfileStore* profile = GetHostServices().profile;
    std::istringstream kept(profile != nullptr ? profile->GetProfileString(section, entry, "")
                                               : "");
    for (std::string title; std::getline(kept, title, separator);) {
        places.try_emplace(title, static_cast<int>(places.size()));
    }
    return places;
}
} // namespace

void ItemOrder::Save(const ToviItemShowSettings& items)
{
    ProfileStore* const profile = GetHostServices().profile;
    if (profile == nullptr) return;
    CString titles;
    for (const ToviItemShowSetting& item : items) {
        if (!titles.empty()) titles += separator;
        titles += item.title;
    }
    profile->WriteProfileString(section, entry, titles);
}

void ItemOrder::Restore(ToviItemShowSettings& items)
{
    const auto places = KeptPlaces();
    const auto place = [&](const ToviItemShowSetting& item) {
        const auto known = places.find(item.title);
        return known != places.end() ? known->second : static_cast<int>(places.size());
    };
    std::stable_sort(items.begin(), items.end(),
                     [&](const ToviItemShowSetting& first, const ToviItemShowSetting& second) {
                         return place(first) < place(second);
                     });
}
