#pragma once

#include <QColor>

/// The colour that the number 0x00BBGGRR stands for.
inline QColor QtColor(unsigned long color)
{
    return QColor(static_cast<int>(color & 0xFF), static_cast<int>(color >> 8 & 0xFF),
                  static_cast<int>(color >> 16 & 0xFF));
}
