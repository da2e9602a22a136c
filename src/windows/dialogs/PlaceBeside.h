#pragma once

#include "platform/text/Export.h"

#include <QRect>

/// Where a window of \p size stands on \p screen so that \p seen stays in sight: beside it, below
/// or above, on the side with the most room; where there isn't enough, in the corner that covers
/// least of it.
TOVI_EXPORT QPoint PlaceBeside(const QRect& seen, QSize size, const QRect& screen);
