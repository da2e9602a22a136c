#include "platform/AtomicFile.h"

#include "platform/FileReplacement.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace
{
constexpr mode_t permissionBits = 0777;
constexpr mode_t newFilePermissions = 0666;

/// What the new file takes over from the one in its place.
struct Target
{
    bool exists = false;
    struct stat facts = {};
};

/// Looks at the file that is to be replaced. 0, or the error number that forbids it.
int Examine(const CString& path, Target& target)
{
    if (path.empty()) return ENOENT;
    if (stat(path.c_str(), &target.facts) != 0) return errno == ENOENT ? 0 : errno;
    target.exists = true;
    if (!S_ISREG(target.facts.st_mode)) return EACCES;
    // A rename needs no right on the file itself, and an administrator's program may do everything:
    // both would run over a file that its owner has made read-only.
    const bool readOnly = (target.facts.st_mode & S_IWUSR) == 0;
    return readOnly || faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) != 0 ? EACCES : 0;
}

int Replace(const CString& path, std::string_view bytes)
{
    Target old;
    if (const int error = Examine(path, old)) return error;
    FileReplacement replacement(path);
    const mode_t permissions = old.exists ? old.facts.st_mode & permissionBits : newFilePermissions;
    if (const int error = replacement.Open(permissions)) return error;
    if (old.exists) {
        if (const int error = replacement.LookLike(old.facts)) return error;
    }
    if (const int error = replacement.Append(bytes)) return error;
    if (const int error = replacement.Flush()) return error;
    if (const int error = replacement.Place()) return error;
    // The new file is whole in any case; this only makes its name last through a power failure.
    replacement.FlushFolder();
    return 0;
}

WriteFailure FailureOf(int error)
{
    switch (error) {
    case 0:
        return WriteFailure::None;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return WriteFailure::NoSpace;
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
        return WriteFailure::NotWritable;
    default:
        return WriteFailure::Other;
    }
}
} // namespace

WriteFailure WhyNotReplaceable(const CString& path)
{
    Target target;
    return FailureOf(Examine(path, target));
}

bool WriteFileAtomically(const CString& path, std::string_view bytes, WriteFailure* failure)
{
    const int error = Replace(path, bytes);
    if (failure != nullptr) *failure = FailureOf(error);
    return error == 0;
}
