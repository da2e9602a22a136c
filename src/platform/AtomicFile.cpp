#include "platform/AtomicFile.h"

#include "platform/FileDescriptor.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdio>

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

/// The new content on its way to \p path. Its operations return 0 or an error number.
class Replacement
{
public:
    explicit Replacement(const CString& path)
        : target(path), folder(path.substr(0, path.rfind('/') + 1))
    {}
    Replacement(const Replacement&) = delete;
    Replacement& operator=(const Replacement&) = delete;
    ~Replacement()
    {
        if (!temporary.empty()) unlink(temporary.c_str());
    }

    int Open(mode_t permissions)
    {
        static std::atomic<unsigned> counter = 0;
        do {
            // The name owes nothing to the target's, which may be as long as a name can be.
            temporary = folder + Format(".tovi-%d-%u.tmp", static_cast<int>(getpid()), ++counter);
            file.Reset(
                open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, permissions));
        } while (!file.IsOpen() && errno == EEXIST);
        if (file.IsOpen()) return 0;
        const int error = errno;
        temporary.clear();
        return error;
    }

    int Fill(std::string_view bytes)
    {
        while (!bytes.empty()) {
            const ssize_t written = write(file.Get(), bytes.data(), bytes.size());
            if (written < 0 && errno != EINTR) return errno;
            if (written > 0) bytes.remove_prefix(static_cast<std::size_t>(written));
        }
        return fsync(file.Get()) == 0 ? 0 : errno;
    }

    int LookLike(const struct stat& old)
    {
        struct stat now;
        if (fstat(file.Get(), &now) != 0) return errno;
        // A foreign owner can only be kept by an administrator's program; others become the owner.
        if (fchown(file.Get(), old.st_uid, old.st_gid) != 0) {
            [[maybe_unused]] const int kept =
                fchown(file.Get(), static_cast<uid_t>(-1), old.st_gid);
        }
        // Not every file system of a memory card knows permissions; there they never differ.
        if (((now.st_mode ^ old.st_mode) & permissionBits) == 0) return 0;
        return fchmod(file.Get(), old.st_mode & permissionBits) == 0 ? 0 : errno;
    }

    int Place()
    {
        if (rename(temporary.c_str(), target.c_str()) != 0) return errno;
        temporary.clear();
        // The new file is whole in any case; this only makes its name last through a power failure.
        const FileDescriptor opened(
            open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        if (opened.IsOpen()) fsync(opened.Get());
        return 0;
    }

private:
    CString target;
    CString folder;
    CString temporary;
    FileDescriptor file;
};

int Replace(const CString& path, std::string_view bytes)
{
    Target old;
    if (const int error = Examine(path, old)) return error;
    Replacement replacement(path);
    const mode_t permissions = old.exists ? old.facts.st_mode & permissionBits : newFilePermissions;
    if (const int error = replacement.Open(permissions)) return error;
    if (old.exists) {
        if (const int error = replacement.LookLike(old.facts)) return error;
    }
    if (const int error = replacement.Fill(bytes)) return error;
    return replacement.Place();
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

bool WriteFileAtomically(const CString& path, std::string_view bytes, WriteFailure* failure)
{
    const int error = Replace(path, bytes);
    if (failure != nullptr) *failure = FailureOf(error);
    return error == 0;
}
