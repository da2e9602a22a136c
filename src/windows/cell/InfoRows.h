#pragma once

#include "items/ToviItemShowSettings.h"
#include "items/ToviTextPair.h"

#include <utility>
#include <vector>

/// The rows of the information list, titles with values: for each title of \p settings, in their
/// order, all of its values in \p pairs. The control values are left out: they stand in a table of
/// their own.
std::vector<std::vector<CString>> InfoRows(const ToviItemShowSettings& settings,
                                           const ToviTextPairArray& pairs);

/// The widths of the columns of titles and of values in a list of \p width. \p isBeside: the list
/// stands beside the photograph.
std::pair<int, int> InfoColumnWidths(int width, bool showTitle, bool isBeside);
