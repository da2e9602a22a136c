#include "platform/exif/ExifFileTiff.h"

#include <algorithm>
#include <limits>
#include <vector>

namespace
{
constexpr std::size_t headerSize = 8;
constexpr std::size_t entrySize = 12;
constexpr std::size_t inlineSize = 4;
constexpr unsigned exifPointer = 0x8769;
constexpr unsigned gpsPointer = 0x8825;
constexpr unsigned imageWidth = 0x100;
constexpr unsigned imageHeight = 0x101;
constexpr unsigned typeShort = 3;
constexpr unsigned typeLong = 4;

/// Enough for every field of the standard but maker notes and comments, in a block that stays under
/// 64 KiB.
constexpr unsigned mostEntries = 100;
constexpr std::uint64_t longestValue = 2048;
constexpr std::size_t longestDirectory = 20000;

/// The bytes of one value by its type number.
constexpr unsigned typeSizes[] = {0, 1, 1, 2, 4, 8, 1, 1, 2, 4, 8, 4, 8, 4};

/// Numbers in the byte order of one file.
class ByteOrder
{
public:
    explicit ByteOrder(bool bigEndian) : big(bigEndian) {}

    std::uint32_t Get(const std::string& bytes, std::size_t at, std::size_t count) const
    {
        std::uint32_t number = 0;
        for (std::size_t i = 0; i < count; ++i) {
            number =
                number << 8 | static_cast<unsigned char>(bytes[big ? at + i : at + count - 1 - i]);
        }
        return number;
    }
    void Put(std::string& bytes, std::size_t at, std::size_t count, std::size_t number) const
    {
        for (std::size_t i = 0; i < count; ++i) {
            bytes[big ? at + count - 1 - i : at + i] = static_cast<char>(number >> 8 * i & 0xFF);
        }
    }

private:
    bool big;
};

struct Entry
{
    unsigned tag;
    /// As it stands in the file.
    std::string bytes;
    /// What doesn't fit into the entry itself.
    std::string value;
};

using Directory = std::vector<Entry>;

class Gatherer
{
public:
    Gatherer(const ExifFileSource& source, ByteOrder byteOrder) : file(source), order(byteOrder) {}

    /// The entries of the directory at \p offset with their values; those that can't be read are
    /// left out.
    Directory ReadDirectory(std::uint32_t offset) const;
    /// The entry \p tag of \p directory, a length in pixels; 0 when it is none.
    int Length(const Directory& directory, unsigned tag) const;
    /// Where the entry \p tag of \p directory points to; 0 when there is none.
    std::uint32_t Pointer(const Directory& directory, unsigned tag) const;
    /// Makes the entry \p tag of \p directory point to \p offset.
    void SetPointer(Directory& directory, unsigned tag, std::size_t offset) const;
    /// The directory as it has to stand at \p offset.
    std::string Laid(const Directory& directory, std::size_t offset) const;

private:
    const ExifFileSource& file;
    ByteOrder order;
};

Directory Gatherer::ReadDirectory(std::uint32_t offset) const
{
    Directory directory;
    const std::string count = file.Read(offset, 2);
    if (offset == 0 || count.size() < 2) return directory;
    const std::size_t entries = std::min(order.Get(count, 0, 2), mostEntries);
    const std::string all = file.Read(std::uint64_t{offset} + 2, entries * entrySize);
    std::size_t total = 0;
    for (std::size_t at = 0; at + entrySize <= all.size(); at += entrySize) {
        Entry entry{order.Get(all, at, 2), all.substr(at, entrySize), {}};
        const std::uint32_t type = order.Get(entry.bytes, 2, 2);
        if (type >= std::size(typeSizes)) continue;
        const std::uint64_t size = std::uint64_t{typeSizes[type]} * order.Get(entry.bytes, 4, 4);
        if (size == 0 || size > longestValue || total + size > longestDirectory) continue;
        total += size + entrySize;
        if (size > inlineSize) entry.value = file.Read(order.Get(entry.bytes, 8, 4), size);
        if (size <= inlineSize || entry.value.size() == size) directory.push_back(entry);
    }
    return directory;
}

int Gatherer::Length(const Directory& directory, unsigned tag) const
{
    for (const Entry& entry : directory) {
        const std::uint32_t type = order.Get(entry.bytes, 2, 2);
        if (entry.tag != tag || (type != typeShort && type != typeLong)) continue;
        const std::uint32_t length = order.Get(entry.bytes, 8, typeSizes[type]);
        return length > std::numeric_limits<int>::max() ? 0 : static_cast<int>(length);
    }
    return 0;
}

std::uint32_t Gatherer::Pointer(const Directory& directory, unsigned tag) const
{
    for (const Entry& entry : directory) {
        if (entry.tag == tag) return order.Get(entry.bytes, 8, 4);
    }
    return 0;
}

void Gatherer::SetPointer(Directory& directory, unsigned tag, std::size_t offset) const
{
    for (Entry& entry : directory) {
        if (entry.tag == tag) order.Put(entry.bytes, 8, 4, offset);
    }
}

std::string Gatherer::Laid(const Directory& directory, std::size_t offset) const
{
    // Behind the entries stands the offset of a next directory, of which there is none.
    const std::size_t headSize = 2 + directory.size() * entrySize + 4;
    std::string head(2, '\0');
    std::string values;
    order.Put(head, 0, 2, directory.size());
    for (const Entry& entry : directory) {
        head += entry.bytes;
        if (entry.value.empty()) continue;
        order.Put(head, head.size() - inlineSize, inlineSize, offset + headSize + values.size());
        values += entry.value;
    }
    return head.append(4, '\0') + values;
}
} // namespace

bool IsTiffStart(const std::string& start)
{
    using namespace std::string_literals;
    return start == "II*\0"s || start == "MM\0*"s;
}

ExifFileBlock GatherTiffExif(const ExifFileSource& file)
{
    std::string header = file.Read(0, headerSize);
    if (header.size() < headerSize) return {};
    const ByteOrder order(header[0] == 'M');
    const Gatherer gatherer(file, order);
    Directory image = gatherer.ReadDirectory(order.Get(header, 4, 4));
    const Directory exif = gatherer.ReadDirectory(gatherer.Pointer(image, exifPointer));
    const Directory gps = gatherer.ReadDirectory(gatherer.Pointer(image, gpsPointer));
    if (exif.empty() && gps.empty()) return {};

    const std::size_t exifAt = headerSize + gatherer.Laid(image, headerSize).size();
    const std::string exifBytes = gatherer.Laid(exif, exifAt);
    const std::size_t gpsAt = exifAt + exifBytes.size();
    gatherer.SetPointer(image, exifPointer, exifAt);
    gatherer.SetPointer(image, gpsPointer, gpsAt);
    order.Put(header, 4, 4, headerSize);
    return {std::string(exifMark) + header + gatherer.Laid(image, headerSize) + exifBytes +
                gatherer.Laid(gps, gpsAt),
            gatherer.Length(image, imageWidth), gatherer.Length(image, imageHeight)};
}
