#include "platform/exif/ExifFileSource.h"

#include <limits>

std::string ExifFileSource::Read(std::uint64_t offset, std::size_t count) const
{
    if (!file.IsOpen() || offset > std::numeric_limits<std::uint32_t>::max()) return {};
    std::string bytes(count, '\0');
    const ssize_t got = pread(file.Descriptor(), bytes.data(), count, static_cast<off_t>(offset));
    bytes.resize(got < 0 ? 0 : static_cast<std::size_t>(got));
    return bytes;
}
