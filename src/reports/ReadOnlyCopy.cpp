#include "reports/ReadOnlyCopy.h"

#include "platform/files/MibCopy.h"
#include "platform/files/MibFile.h"
#include "work/RunWorkFile.h"

#include <filesystem>

CString MakeReadOnlyCopy(const CString& path)
{
    using enum std::filesystem::perms;
    const CString copy = RunWorkFile(path, '_' + MibGetFileName(path));
    // Made anew each time: what stands there may have been through other hands.
    if (copy.empty() || !MibDeleteFile(copy)) return {};
    if (MibCopyFileEx(path, copy) != CopyFailure::None) return {};
    std::error_code failed;
    std::filesystem::permissions(copy, owner_read, failed);
    if (!failed) return copy;
    MibDeleteFile(copy);
    return {};
}
