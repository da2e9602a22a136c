#pragma once

#include "platform/text/Export.h"

#include <QList>
#include <QRect>

/// The smallest size of the position window, which is also that of one whose size is not known.
inline constexpr QSize smallestPositionWindow(200, 300);

/// Where the position window comes up that was at \p stored when it was closed (0 for what was
/// never stored), with \p screens as its choice, the first one before others: no smaller than it
/// may be, and on one of them as a whole.
TOVI_EXPORT QRect ShownPlace(const QRect& stored, const QList<QRect>& screens);
