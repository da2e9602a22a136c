#include "hosts/cli/Profile.h"

#include "platform/host/HostServices.h"
#include "platform/store/FileProfileStore.h"

#include <optional>

namespace
{
CString profilePath;
std::optional<UnsavedProfileStore> profile;

void Install(ProfileStore& store)
{
    HostServices services = GetHostServices();
    services.profile = &store;
    InstallHostServices(services);
}
} // namespace

void UseProfile(const CString& path)
{
    profilePath = path;
    Install(profile.emplace(path));
}

bool SaveInProfile(const std::function<bool()>& save)
{
    FileProfileStore saved(profilePath);
    Install(saved);
    const bool isSaved = saved.WriteTogether(save);
    Install(*profile);
    return isSaved;
}
