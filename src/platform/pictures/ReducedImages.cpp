#include "platform/pictures/ReducedImages.h"

#include <algorithm>
#include <cstring>

namespace
{
/// The form that Qt draws fastest.
QImage ForDrawing(QImage image)
{
    if (image.isNull()) return image;
    return std::move(image).convertToFormat(
        image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
}

/// The means of the bytes of two groups, rounded up and down: done one after the other they leave a
/// picture as bright as it is.
quint64 MeanUp(quint64 one, quint64 other)
{
    return (one | other) - (((one ^ other) & 0xFEFEFEFEFEFEFEFEu) >> 1);
}

quint32 MeanDown(quint32 one, quint32 other)
{
    return (one & other) + (((one ^ other) & 0xFEFEFEFEu) >> 1);
}

template <class Group>
Group GroupAt(const uchar* bytes)
{
    Group group;
    std::memcpy(&group, bytes, sizeof group);
    return group;
}

/// Each pixel is the mean of four of \p image, which has 32 bits a pixel: a third of the time that
/// scaling by any other number takes. The last column and row of an odd number stand for two.
QImage Halved(const QImage& image)
{
    QImage half((image.width() + 1) / 2, (image.height() + 1) / 2, image.format());
    const int pairs = image.width() / 2;
    for (int y = 0; y < half.height(); ++y) {
        const uchar* const upper = image.constScanLine(2 * y);
        const uchar* const lower = image.constScanLine(std::min(2 * y + 1, image.height() - 1));
        auto* const to = reinterpret_cast<quint32*>(half.scanLine(y));
        for (int x = 0; x < pairs; ++x) {
            const quint64 mean =
                MeanUp(GroupAt<quint64>(upper + 8 * x), GroupAt<quint64>(lower + 8 * x));
            to[x] = MeanDown(static_cast<quint32>(mean), static_cast<quint32>(mean >> 32));
        }
        if (pairs == half.width()) continue;
        to[pairs] =
            MeanDown(GroupAt<quint32>(upper + 8 * pairs), GroupAt<quint32>(lower + 8 * pairs));
    }
    return half;
}
} // namespace

ReducedImages::ReducedImages(QImage image) : ReducedImages(image, image.size()) {}

ReducedImages::ReducedImages(QImage image, QSize wholeSize) : size(wholeSize)
{
    images.push_back(ForDrawing(std::move(image)));
}

const QImage& ReducedImages::At(double zoom)
{
    if (IsNull()) return images.front();
    zoom *= static_cast<double>(size.width()) / images.front().width();
    std::size_t level = 0;
    for (; zoom <= 0.5 && images[level].size() != QSize(1, 1); zoom *= 2) {
        if (++level == images.size()) images.push_back(Halved(images.back()));
    }
    return images[level];
}

void ReducedImages::MakeAll(int side)
{
    while (std::max(images.back().width(), images.back().height()) > side) {
        images.push_back(Halved(images.back()));
    }
}

std::size_t ReducedImages::Bytes() const
{
    std::size_t bytes = 0;
    for (const QImage& image : images) bytes += static_cast<std::size_t>(image.sizeInBytes());
    return bytes;
}
