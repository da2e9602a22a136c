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
    return ImageSource::FromFile(path).Read(within);
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
