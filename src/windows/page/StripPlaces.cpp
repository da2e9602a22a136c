#include "windows/page/StripPlaces.h"

namespace
{
constexpr int stripWidth = 150;
constexpr int topOnItem = 105;
} // namespace

CellPlace StripPlaceOnItem(const CellPlace& item)
{
    return {item.x + (item.width - stripWidth) / 2, item.y + topOnItem, stripWidth,
            CellLayout::stripHeight};
}

bool IsItemInSight(const CellPlace& item, int clientWidth, int clientHeight)
{
    const auto isInside = [&](int x, int y) {
        return x >= 0 && x < clientWidth && y >= 0 && y < clientHeight;
    };
    if (item.width <= 0) return false;
    return isInside(item.x, item.y) || isInside(item.x + item.width, item.y + item.height);
}
