#include "platform/exif/ExifCopy.h"

#include "platform/exif/ExifFileTiff.h"

#include <cstdint>

namespace
{
constexpr std::size_t entrySize = 12;
constexpr std::size_t longestBlock = 0xFFFF - 2;

constexpr unsigned tagWidth = 0x0100;
constexpr unsigned tagHeight = 0x0101;
constexpr unsigned tagOrientation = 0x0112;
constexpr unsigned tagStripOffset = 0x0111;
constexpr unsigned tagStripLength = 0x0117;
constexpr unsigned tagPreviewOffset = 0x0201;
constexpr unsigned tagPreviewLength = 0x0202;
constexpr unsigned tagExifDirectory = 0x8769;
constexpr unsigned tagPixelWidth = 0xA002;
constexpr unsigned tagPixelHeight = 0xA003;

constexpr unsigned typeShort = 3;
constexpr unsigned typeLong = 4;

/// The TIFF structure behind the mark of an Exif block, changed in place. What lies outside of it
/// reads as 0 and is never written.
class TiffBytes
{
public:
    TiffBytes(std::string& theBlock, std::size_t theStart)
        : block(theBlock), start(theStart), isLittle(block[start] == 'I')
    {}

    std::uint64_t Get(std::uint64_t at, int size) const
    {
        if (!Has(at, static_cast<std::uint64_t>(size))) return 0;
        std::uint64_t value = 0;
        for (int i = 0; i < size; ++i) value |= ByteAt(at + Place(i, size)) << 8 * i;
        return value;
    }
    void Put(std::uint64_t at, int size, std::uint64_t value)
    {
        if (!Has(at, static_cast<std::uint64_t>(size))) return;
        for (int i = 0; i < size; ++i) {
            block[start + at + Place(i, size)] = static_cast<char>(value >> 8 * i & 0xFF);
        }
    }
    /// What ends the block is taken off, anything else overwritten.
    void Remove(std::uint64_t at, std::uint64_t size)
    {
        if (!Has(at, 0)) return;
        if (!Has(at, size + 1)) {
            block.resize(start + at);
        } else {
            block.replace(start + at, size, size, '\0');
        }
    }

private:
    bool Has(std::uint64_t at, std::uint64_t size) const
    {
        return at <= block.size() - start && size <= block.size() - start - at;
    }
    std::uint64_t ByteAt(std::uint64_t at) const
    {
        return static_cast<unsigned char>(block[start + at]);
    }
    std::uint64_t Place(int byte, int size) const
    {
        return static_cast<std::uint64_t>(isLittle ? byte : size - 1 - byte);
    }

    std::string& block;
    std::size_t start;
    bool isLittle;
};

/// Calls \p visit with the place of each entry of the directory at \p at and its tag. Returns the
/// place of the number that leads to the next directory.
template <class Visit>
std::uint64_t WalkDirectory(const TiffBytes& tiff, std::uint64_t at, const Visit& visit)
{
    const std::uint64_t count = tiff.Get(at, 2);
    for (std::uint64_t i = 0; i < count; ++i) {
        const std::uint64_t entry = at + 2 + i * entrySize;
        visit(entry, tiff.Get(entry, 2));
    }
    return at + 2 + count * entrySize;
}

std::uint64_t WholeOf(const TiffBytes& tiff, std::uint64_t entry)
{
    return tiff.Get(entry + 8, tiff.Get(entry + 2, 2) == typeShort ? 2 : 4);
}

/// Gives an entry of one whole number another one, as its type has it.
void PutWhole(TiffBytes& tiff, std::uint64_t entry, std::uint64_t value)
{
    const std::uint64_t type = tiff.Get(entry + 2, 2);
    if (type == typeShort) tiff.Put(entry + 8, 2, value);
    if (type == typeLong) tiff.Put(entry + 8, 4, value);
}

void DropPreview(TiffBytes& tiff, std::uint64_t directory)
{
    std::uint64_t offset = 0;
    std::uint64_t length = 0;
    const std::uint64_t end =
        WalkDirectory(tiff, directory, [&](std::uint64_t entry, std::uint64_t tag) {
            const bool isOffset = tag == tagPreviewOffset || tag == tagStripOffset;
            const bool isLength = tag == tagPreviewLength || tag == tagStripLength;
            if (isOffset) offset = tiff.Get(entry + 8, 4);
            if (isLength) length = WholeOf(tiff, entry);
        });
    if (offset != 0) tiff.Remove(offset, length);
    tiff.Remove(directory, end + 4 - directory);
}
} // namespace

std::string ExifOfCopy(std::string block, int width, int height)
{
    constexpr std::size_t tiffHead = 8;
    const std::size_t start = exifMark.size();
    const bool isExif = block.starts_with(exifMark) && block.size() >= start + tiffHead &&
                        IsTiffStart(block.substr(start, 4));
    if (!isExif) return {};
    TiffBytes tiff(block, start);
    std::uint64_t exifDirectory = 0;
    const std::uint64_t link =
        WalkDirectory(tiff, tiff.Get(4, 4), [&](std::uint64_t entry, std::uint64_t tag) {
            if (tag == tagOrientation) PutWhole(tiff, entry, 1);
            if (tag == tagWidth) PutWhole(tiff, entry, static_cast<std::uint64_t>(width));
            if (tag == tagHeight) PutWhole(tiff, entry, static_cast<std::uint64_t>(height));
            if (tag == tagExifDirectory) exifDirectory = tiff.Get(entry + 8, 4);
        });
    if (exifDirectory != 0) {
        WalkDirectory(tiff, exifDirectory, [&](std::uint64_t entry, std::uint64_t tag) {
            if (tag == tagPixelWidth) PutWhole(tiff, entry, static_cast<std::uint64_t>(width));
            if (tag == tagPixelHeight) PutWhole(tiff, entry, static_cast<std::uint64_t>(height));
        });
    }
    if (const std::uint64_t preview = tiff.Get(link, 4); preview != 0) {
        DropPreview(tiff, preview);
        tiff.Put(link, 4, 0);
    }
    return block;
}

std::string WithExif(const std::string& jpeg, const std::string& block)
{
    constexpr std::size_t startMarker = 2;
    if (block.empty() || block.size() > longestBlock) return jpeg;
    const std::size_t length = block.size() + 2;
    std::string segment = "\xFF\xE1";
    segment += static_cast<char>(length >> 8 & 0xFF);
    segment += static_cast<char>(length & 0xFF);
    return jpeg.substr(0, startMarker) + segment + block + jpeg.substr(startMarker);
}
