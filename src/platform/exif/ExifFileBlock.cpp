#include "platform/exif/ExifFileBlock.h"

#include "platform/exif/ExifFileSource.h"
#include "platform/exif/ExifFileTiff.h"

namespace
{
constexpr unsigned startOfScan = 0xDA;
constexpr unsigned endOfImage = 0xD9;
constexpr unsigned app1 = 0xE1;
constexpr unsigned fillByte = 0xFF;

/// More than the largest colour profile, preview and extended metadata take together. A file of
/// nothing but tiny segments must not be walked to its end.
constexpr int mostSegments = 2048;

/// Marker, length, and what is needed of the segment: the mark of Exif data or the dimensions.
constexpr std::size_t segmentHead = 10;

unsigned ByteAt(const std::string& bytes, std::size_t at)
{
    return at < bytes.size() ? static_cast<unsigned char>(bytes[at]) : 0u;
}

unsigned ShortAt(const std::string& bytes, std::size_t at)
{
    return ByteAt(bytes, at) << 8 | ByteAt(bytes, at + 1);
}

bool IsFrame(unsigned marker)
{
    // DHT, JPG and DAC stand among the numbers of the frames.
    return marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
}

bool HasLength(unsigned marker)
{
    return marker != 0x01 && (marker < 0xD0 || marker > 0xD8);
}

/// Takes what is wanted of the segment with the first bytes \p head at \p at.
void TakeSegment(const ExifFileSource& file, const std::string& head, std::uint64_t at,
                 ExifFileBlock& block)
{
    const unsigned marker = ByteAt(head, 1);
    if (IsFrame(marker) && head.size() >= 9) {
        block.height = static_cast<int>(ShortAt(head, 5));
        block.width = static_cast<int>(ShortAt(head, 7));
    } else if (marker == app1 && block.bytes.empty() && head.substr(4) == exifMark) {
        block.bytes = file.Read(at + 4, ShortAt(head, 2) - 2);
    }
}

ExifFileBlock ReadJpeg(const ExifFileSource& file)
{
    ExifFileBlock block;
    std::uint64_t at = 2;
    for (int segment = 0; segment < mostSegments; ++segment) {
        const std::string head = file.Read(at, segmentHead);
        const unsigned marker = ByteAt(head, 1);
        if (head.size() < 4 || ByteAt(head, 0) != 0xFF) break;
        if (marker == startOfScan || marker == endOfImage) break;
        if (marker == fillByte) {
            ++at;
        } else if (!HasLength(marker)) {
            at += 2;
        } else {
            if (ShortAt(head, 2) < 2) break;
            TakeSegment(file, head, at, block);
            if (!block.bytes.empty() && block.width > 0) break;
            at += 2 + ShortAt(head, 2);
        }
    }
    return block;
}
} // namespace

ExifFileBlock ReadExifFileBlock(const CString& path)
{
    const ExifFileSource file(path);
    const std::string start = file.Read(0, 4);
    if (start.starts_with("\xFF\xD8")) return ReadJpeg(file);
    if (IsTiffStart(start)) return GatherTiffExif(file);
    return {};
}
