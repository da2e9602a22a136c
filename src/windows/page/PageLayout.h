#pragma once

#include "windows/cell/CellLayout.h"

#include <vector>

/// The places of the cells on a page of this size, which run down the columns with gaps of two
/// pixels between them. What doesn't divide goes to the later rows and columns.
TOVI_EXPORT std::vector<CellPlace> LayOutPage(int width, int height, int columns, int rows);
