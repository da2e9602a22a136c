#pragma once

#include "platform/text/Text.h"

/// The words for a picture of \p width by \p height pixels, as "1600×1200".
TOVI_EXPORT CString SizeText(int width, int height);

/// The words for the number of its pixels, in units of 10,000 where there are that many.
TOVI_EXPORT CString TotalPixelsText(int width, int height);
