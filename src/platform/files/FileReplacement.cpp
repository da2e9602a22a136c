#include "platform/files/FileReplacement.h"

#include "platform/files/RecentFolder.h"
#include "platform/files/TemporaryFiles.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

namespace
{
constexpr mode_t permissionBits = 0777;

/// Locks \p file against who clears up. False when such a one was there first.
bool Hold(const FileDescriptor& file)
{
    struct stat facts;
    const bool isOthers = flock(file.Get(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    return !isOthers && fstat(file.Get(), &facts) == 0 && facts.st_nlink > 0;
}

void ClearUp(const CString& folder, const FileDescriptor& newFile)
{
    static RecentFolder recent;
    struct stat facts;
    if (!recent.IsDue(folder) || fstat(newFile.Get(), &facts) != 0) return;
    RemoveLeftTemporaries(folder, facts.st_ctime);
    recent.Note(folder);
}
} // namespace

FileReplacement::FileReplacement(const CString& path)
    : target(path), folder(path.substr(0, path.rfind('/') + 1))
{}

FileReplacement::~FileReplacement()
{
    if (!temporary.empty()) unlink(temporary.c_str());
}

int FileReplacement::Open(mode_t permissions)
{
    do {
        // The name owes nothing to the target's, which may be as long as a name can be.
        temporary = folder + NewTemporaryName();
        file.Reset(open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, permissions));
    } while (file.IsOpen() ? !Hold(file) : errno == EEXIST);
    if (file.IsOpen()) {
        ClearUp(folder, file);
        return 0;
    }
    const int error = errno;
    temporary.clear();
    return error;
}

int FileReplacement::Append(std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t written = write(file.Get(), bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR) return errno;
        if (written > 0) bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return 0;
}

int FileReplacement::Flush()
{
    return fsync(file.Get()) == 0 ? 0 : errno;
}

int FileReplacement::LookLike(const struct stat& old)
{
    struct stat now;
    if (fstat(file.Get(), &now) != 0) return errno;
    // A foreign owner can only be kept by an administrator's program; others become the owner.
    if (fchown(file.Get(), old.st_uid, old.st_gid) != 0) {
        [[maybe_unused]] const int kept = fchown(file.Get(), static_cast<uid_t>(-1), old.st_gid);
    }
    // Not every file system of a memory card knows permissions; there they never differ.
    if (((now.st_mode ^ old.st_mode) & permissionBits) == 0) return 0;
    return fchmod(file.Get(), old.st_mode & permissionBits) == 0 ? 0 : errno;
}

int FileReplacement::Place()
{
    // A file system of the network tells of a full disk only on a close; the lock has to outlast
    // the old name.
    if (const int error = FileDescriptor(dup(file.Get())).Close()) return error;
    if (rename(temporary.c_str(), target.c_str()) != 0) return errno;
    temporary.clear();
    return file.Close();
}

void FileReplacement::FlushFolder()
{
    const FileDescriptor opened(
        open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (opened.IsOpen()) fsync(opened.Get());
}
