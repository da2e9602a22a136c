#include "windows/list/FloatyPlace.h"

#include <algorithm>

FloatyPlace PlaceFloaty(const CellPlace& item, int indent, int width, int height, int listWidth,
                        int listHeight)
{
    const auto isInside = [&](int x, int y) {
        return x >= 0 && x < listWidth && y >= 0 && y < listHeight;
    };
    FloatyPlace place;
    place.x = std::min(std::max(item.x, 0) + indent, listWidth - width);
    place.y = item.y + item.height;
    if (!isInside(place.x, place.y + height)) place.y = item.y - height;
    place.shown = isInside(place.x, place.y);
    return place;
}
