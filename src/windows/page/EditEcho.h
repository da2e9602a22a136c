#pragma once

#include "review/LabelEdits.h"
#include "review/ToviLabelManager.h"

#include <QString>

/// What a user who has just made \p edit is told, by the names in \p labels: what was pasted, or
/// else what was taken off, and of how many photographs when they are several. Empty for an edit of
/// comments alone and for one that changes nothing.
TOVI_EXPORT QString EchoOf(const LabelEdit& edit, const ToviLabelManager& labels);
