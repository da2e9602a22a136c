#include "windows/detail/DetailPlaces.h"

#include <algorithm>

int FirstPosition(int width, int rightWidth)
{
    return rightWidth >= 1 ? width - rightWidth : width / 2 + 1;
}

std::optional<int> PositionOnResize(int position, int before, int now)
{
    const int allButRight = now - smallestDetailPane;
    if (before == 0) return position > 0 ? std::nullopt : std::optional(allButRight);
    const int moved = std::max(position - before + now, smallestDetailPane);
    return now < 2 * smallestDetailPane || now < moved ? allButRight : moved;
}
