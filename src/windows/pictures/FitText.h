#pragma once

#include "platform/text/Export.h"
#include "platform/text/Text.h"

#include <functional>

/// One line of \p text for a comment strip, an ideographic space in front: the whole of it where
/// \p width allows, else as many characters as leave room for "..." behind them. Empty when the
/// text is or there is no width.
///
/// \p measure gives the width of a text in the unit of \p width; more characters are never
/// narrower. It is asked about few texts, none much longer than what fits.
TOVI_EXPORT CString FitText(const CString& text, int width,
                            const std::function<int(const CString&)>& measure);
