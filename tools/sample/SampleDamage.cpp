#include "sample/SampleDamage.h"

#include "platform/text/Cp932.h"
#include "sample/SampleFile.h"

#include <QBuffer>

#include <cstdint>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace
{
constexpr std::size_t exifTimeLength = 19;
constexpr std::size_t segmentHead = 4;

[[noreturn]] void Fail(const CString& path, std::string_view what)
{
    throw std::runtime_error("\"" + path + "\" has no " + CString(what));
}

/// Replaces the first \p from at or behind \p at, and says where it ends; npos without one.
std::size_t ReplaceFrom(std::string& bytes, std::size_t at, std::string_view from,
                        std::string_view to)
{
    const std::size_t found = bytes.find(from, at);
    if (found == std::string::npos) return found;
    bytes.replace(found, from.size(), to);
    return found + to.size();
}

/// The bytes of the Exif segment with its marker; 0 without one.
std::size_t ExifLength(std::string_view jpeg)
{
    const bool hasExif = jpeg.size() > segmentHead + 6 && jpeg.substr(2, 2) == "\xFF\xE1" &&
                         jpeg.substr(6, 4) == "Exif";
    if (!hasExif) return 0;
    const auto byte = [jpeg](std::size_t i) { return static_cast<unsigned char>(jpeg[i]); };
    return 2 + (std::size_t{byte(4)} << 8 | byte(5));
}

/// The places of times in the front of \p jpeg.
std::vector<std::size_t> ExifTimes(std::string_view jpeg)
{
    std::vector<std::size_t> places;
    const std::string_view exif = jpeg.substr(0, 2 + ExifLength(jpeg));
    for (std::size_t at = 0; at + exifTimeLength <= exif.size(); ++at) {
        const std::string_view text = exif.substr(at, exifTimeLength);
        const bool isTime = text[4] == ':' && text[7] == ':' && text[10] == ' ' &&
                            text[13] == ':' && text[16] == ':';
        if (isTime) places.push_back(at);
    }
    return places;
}

void SetLong(const CString& path, std::string& bytes, std::string_view tag, unsigned value)
{
    const std::size_t at = bytes.find(tag);
    if (at == std::string::npos) Fail(path, "size in its Exif data");
    for (std::size_t i = 0; i < 4; ++i) {
        bytes[at + tag.size() + i] = static_cast<char>(value >> (8 * i) & 0xFF);
    }
}
} // namespace

std::string ReadSampleFile(const CString& path)
{
    std::ifstream file(path, std::ios::binary);
    if (!file) throw std::runtime_error("cannot read \"" + path + "\"");
    return {std::istreambuf_iterator<char>(file), {}};
}

void ReplaceInXml(const CString& path, std::string_view from, std::string_view to, bool everywhere)
{
    std::string bytes = ReadSampleFile(path);
    std::string oldBytes(from);
    std::string newBytes(to);
    if (bytes.find(oldBytes) == std::string::npos) {
        oldBytes = Cp932::Encode(from).value_or(oldBytes);
        newBytes = Cp932::EncodeForXml(to);
    }
    std::size_t at = ReplaceFrom(bytes, 0, oldBytes, newBytes);
    if (at == std::string::npos) Fail(path, from);
    while (everywhere && at != std::string::npos) at = ReplaceFrom(bytes, at, oldBytes, newBytes);
    WriteSampleFile(path, bytes);
}

void SetInXml(const CString& path, std::string_view tag, std::string_view text)
{
    const std::string bytes = ReadSampleFile(path);
    CString open = "<" + CString(tag) + ">";
    if (bytes.find(open) == std::string::npos) open = Cp932::Encode(open).value_or(open);
    const std::size_t at = bytes.find(open);
    if (at == std::string::npos) Fail(path, tag);
    const std::size_t begin = at + open.size();
    const bool isUtf8 = IsUtf8(bytes);
    WriteSampleFile(path, bytes.substr(0, begin) +
                              (isUtf8 ? std::string(text) : Cp932::EncodeForXml(text)) +
                              bytes.substr(bytes.find('<', begin)));
}

void RecodeXml(const CString& path)
{
    std::string bytes = ReadSampleFile(path);
    CString text = Cp932::Decode(bytes).value_or(bytes);
    text = ReplaceAll(std::move(text), "Shift_JIS", "UTF-16");
    std::string wide = "\xFF\xFE";
    for (std::string_view rest = text; !rest.empty();) {
        const char32_t c = TakeCodePoint(rest);
        wide += static_cast<char>(c & 0xFF);
        wide += static_cast<char>(c >> 8 & 0xFF);
    }
    WriteSampleFile(path, wide);
}

void SetExifTimes(const CString& path, std::string_view time, bool everywhere)
{
    std::string bytes = ReadSampleFile(path);
    const std::vector<std::size_t> places = ExifTimes(bytes);
    if (places.empty()) Fail(path, "time in its Exif data");
    for (const std::size_t at : places) {
        bytes.replace(at, exifTimeLength, time);
        if (!everywhere) break;
    }
    WriteSampleFile(path, bytes);
}

void SetExifSize(const CString& path, unsigned width, unsigned height)
{
    using namespace std::string_view_literals;
    std::string bytes = ReadSampleFile(path);
    SetLong(path, bytes, "\x02\xA0\x04\x00\x01\x00\x00\x00"sv, width);
    SetLong(path, bytes, "\x03\xA0\x04\x00\x01\x00\x00\x00"sv, height);
    WriteSampleFile(path, bytes);
}

void SetExifText(const CString& path, std::string_view from, std::string_view to)
{
    std::string bytes = ReadSampleFile(path);
    if (from.size() != to.size() || ReplaceFrom(bytes, 0, from, to) == std::string::npos) {
        Fail(path, from);
    }
    WriteSampleFile(path, bytes);
}

void RemoveExif(const CString& path)
{
    std::string bytes = ReadSampleFile(path);
    bytes.erase(2, ExifLength(bytes));
    WriteSampleFile(path, bytes);
}

void ChangePicture(const CString& path, const std::function<QImage(const QImage&)>& change,
                   int quality)
{
    const std::string bytes = ReadSampleFile(path);
    const QImage image = QImage::fromData(QByteArray::fromStdString(bytes));
    if (image.isNull()) Fail(path, "picture");
    const QImage changed = change(image);
    QByteArray encoded;
    QBuffer buffer(&encoded);
    changed.save(&buffer, "jpeg", quality);
    const std::string jpeg = encoded.toStdString();
    WriteSampleFile(path, bytes.substr(0, 2 + ExifLength(bytes)) + jpeg.substr(2));
    SetExifSize(path, static_cast<unsigned>(changed.width()),
                static_cast<unsigned>(changed.height()));
}

void ResizePicture(const CString& path, int side)
{
    ChangePicture(path, [side](const QImage& image) {
        return image.scaled(side, side, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    });
}

void ScrambleMiddle(const CString& path)
{
    std::string bytes = ReadSampleFile(path);
    std::uint32_t state = 1;
    for (std::size_t at = bytes.size() / 2; at < bytes.size() * 3 / 4; ++at) {
        state = state * 1664525 + 1013904223;
        // No byte is 0xFF, which would begin a marker.
        bytes[at] = static_cast<char>(state >> 25);
    }
    WriteSampleFile(path, bytes);
}
