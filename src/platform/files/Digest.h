#pragma once

#include "platform/text/Text.h"

/// Names for what is made of something else: 32 of the digits 0 to 9 and a to f.

/// The name for \p text, the same in every run; other texts have other names.
CString TextDigest(std::string_view text);

/// The name for the file \p path as it is now: for another path, or once it was replaced or
/// changed, it is another one.
CString FileDigest(const CString& path);
