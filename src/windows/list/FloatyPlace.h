#pragma once

#include "windows/cell/CellLayout.h"

/// Where the tool bar beside the selected item of a list stands.
struct FloatyPlace
{
    int x = 0;
    int y = 0;
    /// False where there is no room for it, or its item is out of sight.
    bool shown = false;

    bool operator==(const FloatyPlace&) const = default;
};

/// The place for a tool bar of \p width by \p height: below the item \p item, \p indent from its
/// left, or above it where the list, of \p listWidth by \p listHeight, ends too soon.
TOVI_EXPORT FloatyPlace PlaceFloaty(const CellPlace& item, int indent, int width, int height,
                                    int listWidth, int listHeight);
