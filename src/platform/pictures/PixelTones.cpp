#include "platform/pictures/PixelTones.h"

#include <QImage>

namespace
{
QRgb Toned(QRgb color, const ToneCurve& curve)
{
    const auto level = [&curve](int value) { return curve[static_cast<std::size_t>(value)]; };
    return qRgba(level(qRed(color)), level(qGreen(color)), level(qBlue(color)), qAlpha(color));
}
} // namespace

void ApplyTones(QImage& image, const ToneCurve& curve)
{
    if (image.isNull()) return;
    if (image.colorCount() > 0) {
        QList<QRgb> colors = image.colorTable();
        for (QRgb& color : colors) color = Toned(color, curve);
        image.setColorTable(colors);
        return;
    }
    image.convertTo(image.hasAlphaChannel() ? QImage::Format_ARGB32 : QImage::Format_RGB32);
    ApplyTones(image, curve, image.rect());
}

void ApplyTones(QImage& image, const ToneCurve& curve, const QRect& part)
{
    for (int row = part.top(); row <= part.bottom(); ++row) {
        auto* const line = reinterpret_cast<QRgb*>(image.scanLine(row));
        for (int at = part.left(); at <= part.right(); ++at) line[at] = Toned(line[at], curve);
    }
}
