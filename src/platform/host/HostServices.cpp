#include "platform/host/HostServices.h"

#include <filesystem>

namespace
{
HostServices& Installed()
{
    static HostServices services;
    return services;
}
} // namespace

void InstallHostServices(const HostServices& services)
{
    Installed() = services;
}

const HostServices& GetHostServices()
{
    return Installed();
}

CString RunningProgramPath()
{
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error).string();
}
