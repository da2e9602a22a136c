#include "platform/files/WriteTarget.h"

#include "platform/files/DeliveredFolder.h"
#include "platform/files/RecentFolder.h"

#include <linux/magic.h>
#include <sys/vfs.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>

namespace
{
constexpr int longestChainOfLinks = 40;

/// The folder of \p path as system calls take it.
CString FolderOf(const CString& path)
{
    const CString folder = path.substr(0, path.rfind('/') + 1);
    return folder.empty() ? "." : folder;
}

/// What a link of /proc says is no path.
bool IsInProc(const CString& folder)
{
    struct statfs facts;
    return statfs(folder.c_str(), &facts) == 0 && facts.f_type == PROC_SUPER_MAGIC;
}

/// False for a link that somebody else has put into a folder where everybody may, to have us
/// overwrite what only we can. The system's own rule, which doesn't see links that are read.
bool IsTrusted(const struct stat& link, const CString& folder)
{
    struct stat facts;
    if (stat(folder.c_str(), &facts) != 0) return false;
    const bool isEverybodys = (facts.st_mode & S_ISVTX) != 0 && (facts.st_mode & S_IWOTH) != 0;
    return !isEverybodys || link.st_uid == geteuid() || link.st_uid == facts.st_uid;
}

WriteFailure FollowLinks(CString& path)
{
    for (int links = 0; links < longestChainOfLinks; ++links) {
        struct stat facts;
        if (lstat(path.c_str(), &facts) != 0) return FailureOf(errno == ENOENT ? 0 : errno);
        if (!S_ISLNK(facts.st_mode)) return WriteFailure::None;
        const CString folder = FolderOf(path);
        if (IsInProc(folder)) return WriteFailure::NotAFile;
        if (!IsTrusted(facts, folder)) return WriteFailure::NotWritable;
        std::array<char, PATH_MAX> text;
        const ssize_t length = readlink(path.c_str(), text.data(), text.size());
        if (length < 0) return FailureOf(errno);
        const CString next(text.data(), static_cast<std::size_t>(length));
        path = next.starts_with('/') ? next : folder + '/' + next;
    }
    return WriteFailure::NotAFile;
}

bool IsDelivered(const CString& path)
{
    static RecentFolder recent;
    const CString folder = FolderOf(path);
    if (!recent.IsDue(folder)) return false;
    if (IsInDelivery(path)) return true;
    recent.Note(folder);
    return false;
}
} // namespace

CString WriteTarget::Folder() const
{
    return FolderOf(path);
}

WriteFailure FindWriteTarget(const CString& path, IntoDelivery intoDelivery, WriteTarget& target)
{
    if (path.empty()) return WriteFailure::Other;
    target.path = path;
    const WriteFailure failure = FollowLinks(target.path);
    if (failure != WriteFailure::None) return failure;
    target.exists = lstat(target.path.c_str(), &target.facts) == 0;
    if (target.exists && !S_ISREG(target.facts.st_mode)) return WriteFailure::NotAFile;
    if (!target.exists && access(target.Folder().c_str(), F_OK) != 0) {
        return FailureOf(errno);
    }
    if (intoDelivery == IntoDelivery::Refused && IsDelivered(target.path)) {
        return WriteFailure::InDelivery;
    }
    return WriteFailure::None;
}
