#pragma once

#include "platform/text/Export.h"

#include <optional>

/// Where the splitter of the detail panel stands: the arithmetic of its two panes, in pixels.

/// The smallest width of a pane.
inline constexpr int smallestDetailPane = 60;

/// The splitter's position at first in a panel of \p width: the right pane gets \p rightWidth, or
/// half where that was never stored (0).
TOVI_EXPORT int FirstPosition(int width, int rightWidth);

/// Where the splitter goes from \p position when the panel's width \p before becomes \p now, so
/// that the right pane keeps its width. Nothing: it stays.
TOVI_EXPORT std::optional<int> PositionOnResize(int position, int before, int now);
