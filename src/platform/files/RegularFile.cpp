#include "platform/files/RegularFile.h"

#include "platform/files/CaseFallback.h"

#include <fcntl.h>

#include <cerrno>

namespace
{
int OpenToRead(const CString& path)
{
    if (path.find('\0') != CString::npos) return -1;
    // O_NONBLOCK: the open of a pipe doesn't wait for its writer. It means nothing to a file.
    constexpr int flags = O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY;
    const int opened = open(path.c_str(), flags);
    return opened < 0 && errno == ENOENT ? open(ExistingPath(path).c_str(), flags) : opened;
}
} // namespace

RegularFile::RegularFile(const CString& path) : file(OpenToRead(path))
{
    const bool usable = file.IsOpen() && fstat(file.Get(), &facts) == 0 && S_ISREG(facts.st_mode);
    if (!usable) file.Reset(-1);
}

ssize_t RegularFile::Read(char* to, std::size_t size) const
{
    std::size_t have = 0;
    while (have < size) {
        const ssize_t got = read(file.Get(), to + have, size - have);
        if (got < 0 && errno != EINTR) return got;
        if (got == 0) break;
        if (got > 0) have += static_cast<std::size_t>(got);
    }
    return static_cast<ssize_t>(have);
}
