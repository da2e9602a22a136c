#pragma once

#include "windows/cell/CellLayout.h"

#include <QRect>

/// \p place as Qt has it.
inline QRect AsRect(const CellPlace& place)
{
    return {place.x, place.y, place.width, place.height};
}
