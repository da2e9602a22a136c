#pragma once

#include "windows/cell/CellLayout.h"

#include <functional>

/// The rows of a list from first up to, but without, end.
struct RowRange
{
    int first = 0;
    int end = 0;

    bool operator==(const RowRange&) const = default;
};

/// The place of the comment strip over a thumbnail in the place \p item: in the middle of it,
/// across the picture's foot.
TOVI_EXPORT CellPlace StripPlaceOnItem(const CellPlace& item);

/// Whether the strip of an item is due: the item's top left or bottom right corner is inside of
/// the client area of this size.
TOVI_EXPORT bool IsItemInSight(const CellPlace& item, int clientWidth, int clientHeight);

/// The rows of \p count that may be in sight; \p placeOf gives the place of a row, none of which
/// is above an earlier one. It is asked about few rows.
TOVI_EXPORT RowRange RowsInSight(int count, int clientHeight,
                                 const std::function<CellPlace(int)>& placeOf);
