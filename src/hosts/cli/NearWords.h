#pragma once

#include "platform/text/Text.h"

#include <vector>

/// The question whether the user meant one of those of \p words that look like \p word, as a
/// sentence to follow the one that \p word is none; empty when none does.
CString MeantPerhaps(const CString& word, const std::vector<CString>& words);
