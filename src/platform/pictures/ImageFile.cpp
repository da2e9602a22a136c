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

/// The size into which a picture of \p size is reduced; an empty one sets no bounds.
QSize Within(const QSize& size, const PictureBounds& bounds)
{
    if (PixelsOf(size) <= bounds.fewPixels) return {};
    if (bounds.longestSide > 0) return {bounds.longestSide, bounds.longestSide};
    const bool fits = bounds.mostPixels == 0 || PixelsOf(size) <= bounds.mostPixels;
    return fits ? QSize() : WithPixels(size, bounds.mostPixels);
}

/// The same for a drawing, whose size isn't known before it is drawn.
QSize WithinUnknown(const PictureBounds& bounds)
{
    if (bounds.longestSide > 0) return {bounds.longestSide, bounds.longestSide};
    return bounds.mostPixels > 0 ? WithPixels({1, 1}, bounds.mostPixels) : QSize();
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

FilePicture ReadPicture(const CString& path, const PictureBounds& bounds)
{
    if (IsSvg(path)) {
        const QImage drawn = ReadSvgImage(path, WithinUnknown(bounds));
        return {drawn, drawn.size()};
    }
    const ImageSource source = ImageSource::FromFile(path);
    return {source.Read(Within(source.Size(), bounds)), source.Size()};
}

FilePicture ReducePicture(const QImage& whole, const PictureBounds& bounds)
{
    return {Reduced(whole, Within(whole.size(), bounds)), whole.size()};
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
