#include "platform/pictures/ImageSource.h"

#include "platform/files/MibFile.h"
#include "platform/pictures/ImageDecoding.h"
#include "platform/pictures/JpegRows.h"

#include <QBuffer>
#include <QImageReader>
#include <QPainter>
#include <QTransform>

namespace
{
constexpr std::size_t largestFile = std::size_t{512} << 20;
/// Parts that begin and end at multiples of it can be decoded reduced.
constexpr int block = 8;

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

/// A reader over bytes that outlive it.
struct BytesReader
{
    explicit BytesReader(const std::string& bytes)
        : shared(QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size()))),
          buffer(&shared)
    {
        Prepare(reader, buffer);
    }

    bool Has(QImageIOHandler::Transformation what) const
    {
        return reader.transformation().testFlag(what);
    }
    bool IsTurned() const { return Has(QImageIOHandler::TransformationRotate90); }
    QSize ShownSize() const { return IsTurned() ? reader.size().transposed() : reader.size(); }
    /// The way from a place in the picture as it is stored to its place in the one that is shown.
    QTransform ToShown() const
    {
        const QSize stored = reader.size();
        QTransform way;
        if (Has(QImageIOHandler::TransformationMirror)) {
            way *= QTransform(-1, 0, 0, 1, stored.width(), 0);
        }
        if (Has(QImageIOHandler::TransformationFlip)) {
            way *= QTransform(1, 0, 0, -1, 0, stored.height());
        }
        if (IsTurned()) way *= QTransform(0, 1, -1, 0, stored.height(), 0);
        return way;
    }
    QImage ReadScaled(const QSize& shownSize)
    {
        reader.setScaledSize(IsTurned() ? shownSize.transposed() : shownSize);
        return reader.read();
    }

    QByteArray shared;
    QBuffer buffer;
    QImageReader reader;
};

QRect OnBlocks(const QRect& part)
{
    const auto down = [](int value) { return value / block * block; };
    const auto up = [](int value) { return (value + block - 1) / block * block; };
    return {QPoint(down(part.left()), down(part.top())),
            QPoint(up(part.right() + 1) - 1, up(part.bottom() + 1) - 1)};
}
} // namespace

QImage Reduced(const QImage& image, const QSize& within)
{
    const QSize wanted = Reduced(image.size(), within);
    if (image.isNull() || wanted == image.size()) return image;
    return image
        .convertToFormat(image.hasAlphaChannel() ? QImage::Format_ARGB32 : QImage::Format_RGB32)
        .scaled(wanted, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

ImageSource ImageSource::FromFile(const CString& path)
{
    std::optional<std::string> content = MibReadFile(path, largestFile);
    ImageSource source(content ? std::move(*content) : std::string());
    if (!content) source.fault = PictureFault::Unreadable;
    return source;
}

ImageSource::ImageSource(std::string content) : bytes(std::move(content))
{
    fault = Judge();
}

PictureFault ImageSource::Judge()
{
    const BytesReader opened(bytes);
    if (bytes.empty()) return PictureFault::Damaged;
    if (!IsLetIn(opened.reader)) return PictureFault::NoPicture;
    isJpeg = opened.reader.format() == "jpeg";
    const QSize shown = opened.ShownSize();
    if (shown.isEmpty()) return PictureFault::Damaged;
    if (PixelsOf(shown) > mostPixels) return PictureFault::TooLarge;
    size = shown;
    return isJpeg && !IsCompleteJpeg(bytes) ? PictureFault::Cut : PictureFault::None;
}

QImage ImageSource::Read(const QSize& within, qint64 pixelLimit) const
{
    if (fault != PictureFault::None) return {};
    const QSize wanted = Reduced(size, within);
    // Only JPEG is decoded at a reduced size; every other format is decoded whole first.
    if (PixelsOf(isJpeg ? wanted : size) > pixelLimit) return {};
    BytesReader opened(bytes);
    if (isJpeg) return wanted == size ? opened.reader.read() : opened.ReadScaled(wanted);
    return Reduced(opened.reader.read(), within);
}

QImage ImageSource::ReadCut(const QSize& within) const
{
    const int rows = fault == PictureFault::Cut ? CountJpegRows(bytes) : 0;
    if (rows == 0) return {};
    const BytesReader opened(bytes);
    QRect part =
        opened.ToShown().mapRect(QRectF(0, 0, opened.reader.size().width(), rows)).toRect();
    const QSize wanted = Reduced(size, within);
    const double scale = static_cast<double>(wanted.width()) / size.width();
    const QImage there = DecodePart(part, (QSizeF(part.size()) * scale).toSize());
    QImage image(wanted, QImage::Format_RGB32);
    if (there.isNull() || image.isNull()) return {};
    image.fill(QColor(160, 160, 160));
    QPainter painter(&image);
    painter.fillRect(image.rect(), QBrush(Qt::darkGray, Qt::BDiagPattern));
    painter.drawImage((QPointF(part.topLeft()) * scale).toPoint(), there);
    return image;
}

QImage ImageSource::ReadPart(QRect& part, const QSize& within) const
{
    if (fault != PictureFault::None) return {};
    if (!isJpeg) return Reduced(Read(QSize()).copy(part &= QRect({0, 0}, size)), within);
    return DecodePart(part, within);
}

QImage ImageSource::DecodePart(QRect& part, const QSize& within) const
{
    BytesReader opened(bytes);
    const QTransform toShown = opened.ToShown();
    const QRect stored = OnBlocks(toShown.inverted().mapRect(QRectF(part)).toRect())
                             .intersected(QRect(QPoint(0, 0), opened.reader.size()));
    if (stored.isEmpty()) return {};
    const QSizeF asked = part.size();
    const double scale = Reduced(part.size(), within).width() / asked.width();
    part = toShown.mapRect(QRectF(stored)).toRect();
    const QSize wanted = (QSizeF(part.size()) * scale).toSize().expandedTo({1, 1});
    if (PixelsOf(wanted) > mostPixelsShown) return {};
    opened.reader.setClipRect(stored);
    return wanted == part.size() ? opened.reader.read() : opened.ReadScaled(wanted);
}
