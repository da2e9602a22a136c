#pragma once

#include "review/LabelEdits.h"

/// What \p edit does, for the user to know it again: 「NG2 を付ける（12枚）」. Of one photograph
/// \p nameOfOne tells it instead of the number.
TOVI_EXPORT CString EditWords(const LabelEdit& edit, const CString& nameOfOne);
