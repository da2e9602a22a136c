#pragma once

#include "review/ToviLabelManager.h"

/// What the badge of the label \p slot says: OK, NG1, ... Of a slot of labelCount or more nothing.
TOVI_EXPORT const char* LabelBadge(unsigned int slot);

/// The label as it is called wherever the user sees it: its badge, and its own name behind where
/// that says more, like "NG1 追記".
TOVI_EXPORT CString LabelCaption(const ToviLabelManager& labels, unsigned int slot);
