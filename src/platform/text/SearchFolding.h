#pragma once

#include "platform/text/Export.h"
#include "platform/text/Text.h"

#include <vector>

/// \p text as a search compares it, with what differs in writing alone made the same: full and half
/// width, katakana and hiragana, upper and lower case, ① and 1, ㈱ and (株), the dashes, the kinds
/// of white space. Characters that can't be seen are left out. Ill-formed bytes become U+FFFD.
TOVI_EXPORT CString FoldForSearch(std::string_view text);

/// What a user who types \p text looks for: its parts between white space, folded. None for blanks.
TOVI_EXPORT std::vector<CString> SearchWords(std::string_view text);
