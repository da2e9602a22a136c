#include "platform/ExifFileSource.h"

#include "platform/CaseFallback.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <limits>

ExifFileSource::ExifFileSource(const CString& path)
    // Without O_NONBLOCK the open of a named pipe would wait for its writer.
    : file(open(ExistingPath(path).c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK))
{
    struct stat facts;
    if (file.IsOpen() && (fstat(file.Get(), &facts) != 0 || !S_ISREG(facts.st_mode))) {
        file.Reset(-1);
    }
}

std::string ExifFileSource::Read(std::uint64_t offset, std::size_t count) const
{
    if (!file.IsOpen() || offset > std::numeric_limits<std::uint32_t>::max()) return {};
    std::string bytes(count, '\0');
    const ssize_t got = pread(file.Get(), bytes.data(), count, static_cast<off_t>(offset));
    bytes.resize(got < 0 ? 0 : static_cast<std::size_t>(got));
    return bytes;
}
