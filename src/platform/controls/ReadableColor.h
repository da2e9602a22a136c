#pragma once

#include <QColor>

/// \p color, which is meant for light paper, as it is read on \p paper: on a dark one as light as
/// it was dark.
inline QColor ReadableOn(const QColor& paper, const QColor& color)
{
    constexpr int middle = 128;
    constexpr int most = 255;
    if (paper.lightness() >= middle || color.lightness() >= middle) return color;
    return QColor::fromHsl(color.hslHue(), color.hslSaturation(), most - color.lightness());
}
