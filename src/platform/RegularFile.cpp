#include "platform/RegularFile.h"

#include "platform/CaseFallback.h"

#include <fcntl.h>

RegularFile::RegularFile(const CString& path)
    // O_NONBLOCK: the open of a pipe doesn't wait for its writer. It means nothing to a file.
    : file(open(ExistingPath(path).c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY))
{
    const bool usable = file.IsOpen() && fstat(file.Get(), &facts) == 0 && S_ISREG(facts.st_mode);
    if (!usable) file.Reset(-1);
}

ssize_t RegularFile::Read(char* to, std::size_t size) const
{
    ssize_t got = -1;
    do {
        got = read(file.Get(), to, size);
    } while (got < 0 && errno == EINTR);
    return got;
}
