#include "platform/files/FileStatus.h"

#include "platform/files/CaseFallback.h"
#include "platform/files/MibFile.h"

#include <fcntl.h>
#include <sys/stat.h>

std::optional<FileStatus> ReadFileStatus(const CString& path)
{
    const CString existing = ExistingPath(path);
    struct statx facts = {};
    const bool known = !existing.empty() && statx(AT_FDCWD, existing.c_str(), AT_STATX_SYNC_AS_STAT,
                                                  STATX_BASIC_STATS | STATX_BTIME, &facts) == 0;
    if (!known || !S_ISREG(facts.stx_mode)) return std::nullopt;
    const bool hasBirth = (facts.stx_mask & STATX_BTIME) != 0 && facts.stx_btime.tv_sec != 0;
    FileStatus status;
    status.size = facts.stx_size;
    status.created = hasBirth ? facts.stx_btime.tv_sec : facts.stx_ctime.tv_sec;
    status.lastWritten = facts.stx_mtime.tv_sec;
    status.isReadOnly = (facts.stx_mode & S_IWUSR) == 0;
    status.isHidden = MibGetFileName(existing).starts_with('.');
    return status;
}

CString LocalTimeText(std::time_t time)
{
    std::tm local;
    if (localtime_r(&time, &local) == nullptr) return {};
    char text[64];
    return CString(text, std::strftime(text, sizeof text, "%Y/%m/%d %H:%M:%S", &local));
}
