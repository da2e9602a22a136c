#pragma once

#include "windows/cell/CellLayout.h"

/// The place of the comment strip over a thumbnail in the place \p item: in the middle of it,
/// across the picture's foot.
TOVI_EXPORT CellPlace StripPlaceOnItem(const CellPlace& item);

/// Whether the strip of an item is due: the item's top left or bottom right corner is inside of
/// the client area of this size.
TOVI_EXPORT bool IsItemInSight(const CellPlace& item, int clientWidth, int clientHeight);
