#include "platform/files/FileLock.h"

#include "platform/files/DeliveredFolder.h"
#include "platform/files/FileDescriptor.h"
#include "platform/files/MibFile.h"
#include "platform/host/HostServices.h"

#include <fcntl.h>
#include <pwd.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <sstream>

namespace
{
constexpr std::string_view ending = ".lock";
constexpr std::size_t longestName = 255;
constexpr std::size_t longestNote = 4096;
/// Whoever may write the folder may go on with what a killed program of another user has left.
constexpr mode_t everybody = 0666;

CString LockName(const CString& path)
{
    // Names that differ in letter case are one file here.
    const CString name = FoldCase(MibGetFileName(path));
    std::string_view left = name;
    CString cut = ".";
    while (!left.empty()) {
        const std::size_t before = cut.size();
        AppendUtf8(cut, TakeCodePoint(left));
        if (cut.size() + ending.size() <= longestName) continue;
        cut.resize(before);
        break;
    }
    return cut.append(ending);
}

CString UserName()
{
    const passwd* const user = getpwuid(geteuid());
    return user != nullptr ? user->pw_name : std::to_string(geteuid());
}

CString HostName()
{
    std::array<char, 256> name{};
    return gethostname(name.data(), name.size() - 1) == 0 ? name.data() : "";
}

void WriteNote(int file)
{
    const CString note = MibGetFileName(RunningProgramPath()) + '\n' + std::to_string(getpid()) +
                         '\n' + UserName() + '\n' + HostName() + '\n';
    // A lock without a note is a lock all the same.
    if (ftruncate(file, 0) != 0) return;
    [[maybe_unused]] const ssize_t written = pwrite(file, note.data(), note.size(), 0);
}

/// Opens the file \p path, which is made where it is missing. Not by one call: that is refused in
/// folders like /tmp when the file is another user's.
int OpenLockFile(const char* path)
{
    constexpr int flags = O_RDWR | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK;
    for (;;) {
        int file = open(path, flags);
        if (file >= 0 || errno != ENOENT) return file;
        file = open(path, flags | O_CREAT | O_EXCL, everybody);
        if (file >= 0) fchmod(file, everybody);
        if (file >= 0 || errno != EEXIST) return file;
    }
}

/// True when the open \p file is the one that stands at \p path.
bool StandsAt(const CString& path, int file)
{
    struct stat opened;
    struct stat there;
    return fstat(file, &opened) == 0 && lstat(path.c_str(), &there) == 0 &&
           opened.st_ino == there.st_ino && opened.st_dev == there.st_dev;
}
} // namespace

FileLock::FileLock(const CString& path)
{
    if (MibGetFileName(path).empty() || IsInDelivery(path)) return;
    lockPath = path.substr(0, path.rfind('/') + 1) + LockName(path);
}

FileLock::~FileLock()
{
    Release();
}

bool FileLock::Take()
{
    while (!held) {
        auto file = std::make_unique<FileDescriptor>(OpenLockFile(lockPath.c_str()));
        if (!file->IsOpen()) return true;
        if (flock(file->Get(), LOCK_EX | LOCK_NB) != 0) {
            if (errno == EINTR) continue;
            if (errno == EWOULDBLOCK) return false;
            unlink(lockPath.c_str());
            return true;
        }
        // Else its holder has removed it since it was opened, and the next one locks another.
        if (StandsAt(lockPath, file->Get())) held = std::move(file);
    }
    WriteNote(held->Get());
    return true;
}

void FileLock::Release()
{
    if (!held) return;
    if (StandsAt(lockPath, held->Get())) unlink(lockPath.c_str());
    held.reset();
}

LockHolder FileLock::Holder() const
{
    const CString note = MibReadFile(lockPath, longestNote).value_or("");
    LockHolder holder;
    std::istringstream lines(note);
    for (CString* field : {&holder.program, &holder.process, &holder.user, &holder.host}) {
        std::getline(lines, *field);
    }
    return holder;
}
