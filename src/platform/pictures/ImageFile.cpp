#include "platform/pictures/ImageFile.h"

#include "platform/files/MibFile.h"
#include "platform/files/RegularFile.h"
#include "platform/host/Headless.h"
#include "platform/pictures/SvgPhoto.h"
#include "platform/pictures/SvgRendering.h"

#include <QBuffer>
#include <QFile>
#include <QImage>
#include <QImageReader>

#include <algorithm>
#include <cstring>

namespace
{
constexpr std::size_t largestFile = std::size_t{512} << 20;
/// Twice what the largest cameras make. Beyond it stands only what means harm.
constexpr qint64 mostPixels = 200'000'000;
constexpr qint64 mostPixelsDecoded = 60'000'000;

constexpr const char* formats[] = {"jpeg", "tiff", "png", "bmp", "gif"};

/// Walks the segments of a JPEG file. True when it reaches the marker that ends the picture: the
/// decoder itself fills what is missing of a file cut off with grey and calls that a success.
bool IsCompleteJpeg(std::string_view bytes)
{
    constexpr unsigned char startOfScan = 0xDA;
    constexpr unsigned char endOfImage = 0xD9;
    const auto byte = [bytes](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
    std::size_t at = 2;
    while (at + 1 < bytes.size()) {
        const auto* marker =
            static_cast<const char*>(std::memchr(bytes.data() + at, 0xFF, bytes.size() - at - 1));
        if (marker == nullptr) return false;
        at = static_cast<std::size_t>(marker - bytes.data()) + 1;
        const unsigned char code = byte(at);
        if (code == endOfImage) return true;
        const bool hasLength = code >= 0xC0 && code < 0xFF && (code < 0xD0 || code >= startOfScan);
        if (!hasLength) continue;
        if (at + 2 >= bytes.size()) return false;
        at += 1 + (static_cast<std::size_t>(byte(at + 1)) << 8 | byte(at + 2));
    }
    return false;
}

bool IsSvg(const CString& path)
{
    return EqualNoCase(MibGetExt(path), ".svg");
}

/// Lets the content of \p source decide about its format, and not its name.
void Prepare(QImageReader& reader, QIODevice& source)
{
    EnsureQuiet();
    reader.setDevice(&source);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
}

/// To be asked before anything else: for its size alone a picture in some other format, an SVG
/// under a photograph's name say, would be read whole.
bool IsLetIn(const QImageReader& reader)
{
    const QByteArray format = reader.format();
    return std::any_of(std::begin(formats), std::end(formats),
                       [&format](const char* known) { return format == known; });
}

qint64 PixelsOf(const QSize& size)
{
    return static_cast<qint64>(size.width()) * size.height();
}

QSize Reduced(const QSize& size, const QSize& within)
{
    const bool fits = size.width() <= within.width() && size.height() <= within.height();
    if (within.isEmpty() || fits) return size;
    return size.scaled(within, Qt::KeepAspectRatio).expandedTo({1, 1});
}

std::optional<QSize> SizeIn(QIODevice& source)
{
    QImageReader reader;
    Prepare(reader, source);
    if (!IsLetIn(reader)) return std::nullopt;
    const QSize size = reader.size();
    if (size.isEmpty()) return std::nullopt;
    return size;
}

QImage Decode(const std::string& bytes, const QSize& within)
{
    QByteArray shared = QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size()));
    QBuffer buffer(&shared);
    QImageReader reader;
    Prepare(reader, buffer);
    if (!IsLetIn(reader)) return {};
    const QSize size = reader.size();
    if (size.isEmpty() || PixelsOf(size) > mostPixels) return {};
    const bool isJpeg = reader.format() == "jpeg";
    if (isJpeg && !IsCompleteJpeg(bytes)) return {};
    const QSize wanted = Reduced(size, within);
    // Only JPEG is decoded at a reduced size; every other format is decoded whole first.
    const QSize decoded = isJpeg ? wanted : size;
    if (PixelsOf(decoded) > mostPixelsDecoded) return {};
    if (isJpeg && wanted != size) reader.setScaledSize(wanted);
    const QImage image = reader.read();
    if (isJpeg || image.isNull() || wanted == size) return image;
    return image
        .convertToFormat(image.hasAlphaChannel() ? QImage::Format_ARGB32 : QImage::Format_RGB32)
        .scaled(Reduced(image.size(), within), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}
} // namespace

std::optional<QSize> ReadImageSize(const CString& path)
{
    // The header is enough, so the file is not read whole; only an SVG photograph has to be
    // unpacked.
    if (IsSvg(path)) {
        const std::optional<std::string> unpacked = ReadMainImageOfSvg(path);
        if (!unpacked) return std::nullopt;
        QByteArray shared =
            QByteArray::fromRawData(unpacked->data(), static_cast<qsizetype>(unpacked->size()));
        QBuffer buffer(&shared);
        return SizeIn(buffer);
    }
    const RegularFile opened(path);
    QFile file;
    if (!opened.IsOpen() || !file.open(opened.Descriptor(), QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    return SizeIn(file);
}

QImage ReadImage(const CString& path, int longestSide)
{
    const QSize within(longestSide, longestSide);
    if (IsSvg(path)) return ReadSvgImage(path, within);
    const std::optional<std::string> bytes = MibReadFile(path, largestFile);
    return bytes ? Decode(*bytes, within) : QImage();
}

QImage ReadSvgImage(const CString& path, const QSize& within)
{
    const std::optional<SvgContent> content = ReadSvgContent(path);
    if (!content || content->linksOutside) return {};
    // What is left out of a drawing is drawn as nothing: a photograph must not be.
    if (content->mainImage && !IsCompleteJpeg(*content->mainImage)) return {};
    QImage drawn = RenderSvg(path, within);
    if (drawn.isNull() && content->mainImage) return Decode(*content->mainImage, within);
    return drawn;
}
