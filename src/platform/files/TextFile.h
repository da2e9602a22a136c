#pragma once

#include "platform/text/Text.h"

#include <optional>

/// The whole text of the file \p path in UTF-8, decoded as it is read. Nothing when it can't be
/// read, has more than \p limit bytes, or holds something outside its encoding; \p readable then
/// tells the last from the others.
std::optional<CString> ReadTextFile(const CString& path, std::size_t limit, bool& readable);
