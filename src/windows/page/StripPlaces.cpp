#include "windows/page/StripPlaces.h"

#include <algorithm>
#include <ranges>

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

RowRange RowsInSight(int count, int clientHeight, const std::function<CellPlace(int)>& placeOf)
{
    const auto rows = std::views::iota(0, std::max(0, count));
    const auto first = std::ranges::partition_point(rows, [&](int row) {
        const CellPlace place = placeOf(row);
        return place.y + place.height < 0;
    });
    const auto end = std::ranges::partition_point(
        first, rows.end(), [&](int row) { return placeOf(row).y < clientHeight; });
    return {static_cast<int>(first - rows.begin()), static_cast<int>(end - rows.begin())};
}
