#include "platform/files/DiskSpace.h"

#include "platform/files/CaseFallback.h"

#include <sys/statvfs.h>

#include <utility>

namespace
{
FreeSpaceQuery& InstalledQuery()
{
    static FreeSpaceQuery query;
    return query;
}
} // namespace

std::uint64_t FreeSpace(const CString& folder)
{
    if (InstalledQuery()) return InstalledQuery()(folder);
    struct statvfs facts;
    if (statvfs(folder.empty() ? "." : ExistingPath(folder).c_str(), &facts) != 0) return 0;
    return static_cast<std::uint64_t>(facts.f_bavail) * facts.f_frsize;
}

void SetFreeSpaceQuery(FreeSpaceQuery query)
{
    InstalledQuery() = std::move(query);
}
