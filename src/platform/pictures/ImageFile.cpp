#include "platform/pictures/ImageFile.h"

#include "platform/files/MibFile.h"
#include "platform/files/RegularFile.h"
#include "platform/pictures/ImageDecoding.h"
#include "platform/pictures/ImageSource.h"
#include "platform/pictures/SvgPhoto.h"
#include "platform/pictures/SvgRendering.h"

#include <QBuffer>
#include <QFile>
#include <QImage>
#include <QImageReader>

#include <algorithm>
#include <cmath>

namespace
{
bool IsSvg(const CString& path)
{
    return EqualNoCase(MibGetExt(path), ".svg");
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

qint64 PixelsOf(const QSize& size)
{
    return static_cast<qint64>(size.width()) * size.height();
}

/// The size of the shape \p shape that has \p pixels pixels.
QSize WithPixels(const QSize& shape, qint64 pixels)
{
    const double scale =
        std::sqrt(static_cast<double>(pixels) / static_cast<double>(PixelsOf(shape)));
    return {std::max(1, static_cast<int>(shape.width() * scale)),
            std::max(1, static_cast<int>(shape.height() * scale))};
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
    return IsSvg(path) ? ReadSvgImage(path, within) : ImageSource::FromFile(path).Read(within);
}

QImage ReadImageUpTo(const CString& path, qint64 mostPixels, QSize& wholeSize)
{
    if (IsSvg(path)) {
        const QImage drawn = ReadSvgImage(path, WithPixels({1, 1}, mostPixels));
        wholeSize = drawn.size();
        return drawn;
    }
    const ImageSource source = ImageSource::FromFile(path);
    wholeSize = source.Size();
    const bool fits = PixelsOf(wholeSize) <= mostPixels;
    return source.Read(fits ? QSize() : WithPixels(wholeSize, mostPixels));
}

QImage ReadSvgImage(const CString& path, const QSize& within)
{
    std::optional<SvgContent> content = ReadSvgContent(path);
    if (!content || content->linksOutside) return {};
    // What is left out of a drawing is drawn as nothing: a photograph must not be.
    if (content->mainImage && !IsCompleteJpeg(*content->mainImage)) return {};
    QImage drawn = RenderSvg(path, within);
    if (!drawn.isNull() || !content->mainImage) return drawn;
    return ImageSource(std::move(*content->mainImage)).Read(within);
}
