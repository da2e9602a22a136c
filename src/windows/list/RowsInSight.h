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

/// The rows of \p count that may be in sight; \p placeOf gives the place of a row, none of which
/// is above an earlier one. It is asked about few rows.
TOVI_EXPORT RowRange RowsInSight(int count, int clientHeight,
                                 const std::function<CellPlace(int)>& placeOf);
