#include "platform/files/AtomicFile.h"

#include "platform/files/FileReplacement.h"
#include "platform/files/WriteTarget.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace
{
constexpr mode_t permissionBits = 0777;
constexpr mode_t newFilePermissions = 0666;

/// Finds the file that is to be replaced and looks at it.
WriteFailure Examine(const CString& path, WriteTarget& target)
{
    const WriteFailure failure = FindWriteTarget(path, IntoDelivery::Refused, target);
    if (failure != WriteFailure::None || !target.exists) return failure;
    // A rename needs no right on the file itself, and an administrator's program may do everything:
    // both would run over a file that its owner has made read-only.
    const bool readOnly = (target.facts.st_mode & S_IWUSR) == 0 ||
                          faccessat(AT_FDCWD, target.path.c_str(), W_OK, AT_EACCESS) != 0;
    return readOnly ? WriteFailure::NotWritable : WriteFailure::None;
}

int Replace(const WriteTarget& old, std::string_view bytes)
{
    FileReplacement replacement(old.path);
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
} // namespace

WriteFailure WhyNotReplaceable(const CString& path)
{
    WriteTarget target;
    const WriteFailure failure = Examine(path, target);
    if (failure != WriteFailure::None) return failure;
    const bool isOpen = faccessat(AT_FDCWD, target.Folder().c_str(), W_OK, AT_EACCESS) == 0;
    return isOpen ? WriteFailure::None : FailureOf(errno);
}

CString WhyNotReplaced(const CString& path)
{
    const WriteFailure failure = WhyNotReplaceable(path);
    return WhyNotWritten(path, failure == WriteFailure::None ? WriteFailure::Other : failure);
}

bool WriteFileAtomically(const CString& path, std::string_view bytes, WriteFailure* failure)
{
    WriteTarget target;
    WriteFailure reason = Examine(path, target);
    if (reason == WriteFailure::None) reason = FailureOf(Replace(target, bytes));
    if (failure != nullptr) *failure = reason;
    return reason == WriteFailure::None;
}

bool WriteWorkFile(const CString& path, std::string_view bytes)
{
    struct stat facts;
    if (lstat(path.c_str(), &facts) == 0 && S_ISLNK(facts.st_mode)) unlink(path.c_str());
    return WriteFileAtomically(path, bytes);
}
