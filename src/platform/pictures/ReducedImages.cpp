#include "platform/pictures/ReducedImages.h"

#include <algorithm>

namespace
{
/// The form that Qt draws fastest.
QImage ForDrawing(QImage image)
{
    if (image.isNull()) return image;
    return std::move(image).convertToFormat(
        image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
}

QImage Halved(const QImage& image)
{
    const QSize size((image.width() + 1) / 2, (image.height() + 1) / 2);
    return image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
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
