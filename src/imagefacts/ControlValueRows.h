#pragma once

#include "imagefacts/ToviControlValues.h"

#include <vector>

/// The values that a table of \p values shows, in its order, without the blank ones. None when a
/// part of the text didn't parse, or the text is a mere name.
std::vector<const ToviControlValue*> ControlValueRows(const ToviControlValues& values);

/// True when \p values are shown as a table, false when their text is shown as it stands.
bool IsShownAsTable(const ToviControlValues& values);
