#include "platform/files/AtomicFile.h"

#include "platform/files/FileReplacement.h"
#include "platform/files/WriteTarget.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <optional>

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

using Producer = std::function<bool(const ByteSink&)>;

/// Makes the new file; an error number when that fails, nothing when \p produce gives up.
std::optional<int> Fill(FileReplacement& replacement, const WriteTarget& old,
                        const Producer& produce)
{
    const mode_t permissions = old.exists ? old.facts.st_mode & permissionBits : newFilePermissions;
    if (const int error = replacement.Open(permissions)) return error;
    if (old.exists) {
        if (const int error = replacement.LookLike(old.facts)) return error;
    }
    int error = 0;
    const bool produced = produce([&](std::string_view bytes) {
        error = replacement.Append(bytes);
        return error == 0;
    });
    if (error == 0 && !produced) return std::nullopt;
    return error;
}

/// What \p produce gives becomes the whole of the file; an error number as Fill.
std::optional<int> Replace(const WriteTarget& old, const Producer& produce)
{
    FileReplacement replacement(old.path);
    const std::optional<int> filled = Fill(replacement, old, produce);
    if (filled != 0) return filled;
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
    return WriteFileAtomically(
        path, [bytes](const ByteSink& sink) { return sink(bytes); }, failure);
}

bool WriteFileAtomically(const CString& path, const Producer& produce, WriteFailure* failure)
{
    WriteTarget target;
    WriteFailure reason = Examine(path, target);
    std::optional<int> error;
    if (reason == WriteFailure::None) {
        error = Replace(target, produce);
        reason = FailureOf(error.value_or(0));
    }
    if (failure != nullptr) *failure = reason;
    return error == 0;
}

bool WriteWorkFile(const CString& path, std::string_view bytes)
{
    struct stat facts;
    if (lstat(path.c_str(), &facts) == 0 && S_ISLNK(facts.st_mode)) unlink(path.c_str());
    return WriteFileAtomically(path, bytes);
}
