#include "platform/files/TemporaryFiles.h"

#include "platform/files/FileDescriptor.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/utsname.h>
#include <unistd.h>

#include <atomic>
#include <memory>

namespace
{
constexpr std::string_view nameStart = ".tovi-";
constexpr std::string_view nameEnd = ".tmp";
constexpr std::time_t longestSilence = std::time_t{24} * 60 * 60;

/// How the names end that are made on this machine.
const CString& OwnEnd()
{
    static const CString end = [] {
        utsname machine = {};
        uname(&machine);
        return CString("@") + machine.nodename + CString(nameEnd);
    }();
    return end;
}

bool IsTemporaryName(std::string_view name)
{
    return name.starts_with(nameStart) && name.ends_with(nameEnd);
}

/// Takes the lock that tells whether whoever made \p file lives. A file that forbids writing can
/// be locked all the same, except on some file systems of the network.
bool TakeLock(FileDescriptor& file, const CString& path)
{
    constexpr int asItIs = O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;
    file.Reset(open(path.c_str(), O_RDWR | asItIs));
    if (!file.IsOpen()) file.Reset(open(path.c_str(), O_RDONLY | asItIs));
    return file.IsOpen() && flock(file.Get(), LOCK_EX | LOCK_NB) == 0;
}

void RemoveIfLeft(const CString& folder, std::string_view name, std::time_t now)
{
    const CString path = folder + CString(name);
    FileDescriptor file;
    struct stat facts;
    if (!TakeLock(file, path) || fstat(file.Get(), &facts) != 0) return;
    const bool isLeft = name.ends_with(OwnEnd()) || now - facts.st_ctime > longestSilence;
    if (S_ISREG(facts.st_mode) && isLeft) unlink(path.c_str());
}
} // namespace

CString NewTemporaryName()
{
    static std::atomic<unsigned> counter = 0;
    return Format("%s%d-%u", CString(nameStart).c_str(), static_cast<int>(getpid()), ++counter) +
           OwnEnd();
}

void RemoveLeftTemporaries(const CString& folder, std::time_t now)
{
    const std::unique_ptr<DIR, int (*)(DIR*)> handle(opendir(folder.empty() ? "." : folder.c_str()),
                                                     closedir);
    if (!handle) return;
    while (const dirent* entry = readdir(handle.get())) {
        if (IsTemporaryName(entry->d_name)) RemoveIfLeft(folder, entry->d_name, now);
    }
}
