#include "platform/pictures/ImageFile.h"

#include "platform/files/MibFile.h"
#include "platform/files/RegularFile.h"
#include "platform/pictures/ImageDecoding.h"
#include "platform/pictures/ImageSource.h"
#include "platform/pictures/SvgPhoto.h"
#include "platform/pictures/SvgRendering.h"

#include <QBuffer>
#include <QImageReader>

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace
{
bool IsSvg(const CString& path)
{
    return EqualNoCase(MibGetExt(path), ".svg");
}

/// Where nearly all files tell their size.
constexpr std::size_t headBytes = std::size_t{64} << 10;
constexpr std::size_t largestFile = std::size_t{512} << 20;

/// Nothing when \p bytes are no picture, an empty size when they end too soon to tell.
std::optional<QSize> SizeIn(const std::string& bytes)
{
    QByteArray shared = QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size()));
    QBuffer buffer(&shared);
    QImageReader reader;
    Prepare(reader, buffer);
    if (!IsLetIn(reader)) return std::nullopt;
    return reader.size().isValid() ? reader.size() : QSize(0, 0);
}

/// What is at the beginning of the file \p path.
std::string ReadHead(const CString& path)
{
    const RegularFile file(path);
    std::string head(headBytes, '\0');
    const ssize_t got = file.IsOpen() ? file.Read(head.data(), head.size()) : 0;
    head.resize(got > 0 ? static_cast<std::size_t>(got) : 0);
    return head;
}

qint64 PixelsOf(const QSize& size)
{
    return static_cast<qint64>(size.width()) * size.height();
}

/// The marker of a JPEG file's end stands near the end of \p file. Cameras put something behind it.
bool EndsAsJpeg(const RegularFile& file)
{
    constexpr off_t tailBytes = 4096;
    std::array<char, tailBytes> tail;
    const auto from = static_cast<off_t>(file.Size()) - tailBytes;
    const ssize_t got = pread(file.Descriptor(), tail.data(), tail.size(), from);
    return got > 0 &&
           std::string_view(tail.data(), static_cast<std::size_t>(got)).find("\xFF\xD9") !=
               std::string_view::npos;
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

/// What can't be decoded though nothing speaks against it is damaged.
FilePicture Judged(QImage image, const QSize& wholeSize, PictureFault fault)
{
    const bool isWhole = fault == PictureFault::None || fault == PictureFault::Cut;
    if (image.isNull() && isWhole) fault = PictureFault::Damaged;
    return {std::move(image), wholeSize, fault};
}
} // namespace

std::optional<QSize> ReadImageSize(const CString& path)
{
    std::optional<std::string> bytes = IsSvg(path) ? ReadMainImageOfSvg(path) : ReadHead(path);
    if (!bytes) return std::nullopt;
    std::optional<QSize> size = SizeIn(*bytes);
    if (size && size->isEmpty() && bytes->size() == headBytes) {
        bytes = MibReadFile(path, largestFile);
        size = bytes ? SizeIn(*bytes) : std::nullopt;
    }
    return size && !size->isEmpty() ? size : std::nullopt;
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
        return Judged(drawn, drawn.size(), PictureFault::None);
    }
    const ImageSource source = ImageSource::FromFile(path);
    const QSize within = Within(source.Size(), bounds);
    const bool isCut = source.Fault() == PictureFault::Cut;
    return Judged(isCut ? source.ReadCut(within) : source.Read(within), source.Size(),
                  source.Fault());
}

PictureFault ProbePicture(const CString& path)
{
    const RegularFile file(path);
    if (!file.IsOpen()) return PictureFault::Unreadable;
    if (IsSvg(path)) return PictureFault::None;
    const PictureFault begins = ImageSource(ReadHead(path)).Fault();
    const bool isDoubtful = begins == PictureFault::Damaged || begins == PictureFault::Cut;
    if (file.Size() <= headBytes || !isDoubtful) return begins;
    if (begins == PictureFault::Cut && EndsAsJpeg(file)) return PictureFault::None;
    return ImageSource::FromFile(path).Fault();
}

FilePicture ReducePicture(const QImage& whole, const PictureBounds& bounds)
{
    return Judged(Reduced(whole, Within(whole.size(), bounds)), whole.size(), PictureFault::None);
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
