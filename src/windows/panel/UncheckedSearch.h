#pragma once

#include "delivery/ToviData.h"

/// The next position of the current array behind \p position (-1: from the start) whose photograph
/// is 未検査. Behind the last one the search goes on at the first and ends with \p position itself;
/// -1 when there is none.
TOVI_EXPORT int NextUnchecked(const ToviData& data, int position);
