#include "windows/list/RowsInSight.h"

#include <algorithm>
#include <ranges>

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
