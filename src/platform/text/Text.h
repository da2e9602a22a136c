#pragma once

#include "platform/text/CArray.h"
#include "platform/text/Export.h"

#include <string>
#include <string_view>

/// All text of the system, in UTF-8. Limits in bytes and sort orders are those of code page 932 and
/// go through platform/text/Cp932.h.
using CString = std::string;
using CStringArray = CArray<CString>;

/// \p text with the letters A to Z, their full-width, Greek and Cyrillic counterparts in lower
/// case: the measure by which file names are the same on a file system without letter case.
TOVI_EXPORT CString FoldCase(std::string_view text);

/// True when both texts are equal without regard to letter case (see FoldCase).
TOVI_EXPORT bool EqualNoCase(std::string_view left, std::string_view right);

/// \p text with every occurrence of \p from replaced by \p to; \p from must not be empty.
TOVI_EXPORT CString ReplaceAll(CString text, std::string_view from, std::string_view to);

/// \p text without the blanks (space, tab, CR, LF) at both ends.
TOVI_EXPORT CString Trimmed(std::string_view text);

/// The part of \p text from its first character on that is no such blank.
TOVI_EXPORT std::string_view TrimmedLeft(std::string_view text);

/// True when \p text is well-formed UTF-8: no overlong form, surrogate or value above U+10FFFF.
TOVI_EXPORT bool IsUtf8(std::string_view text);

/// Appends \p codePoint (a Unicode scalar value) to \p text as UTF-8.
TOVI_EXPORT void AppendUtf8(CString& text, char32_t codePoint);

/// Takes the next code point off the front of \p text, which is not empty. An ill-formed sequence
/// gives U+FFFD and takes one byte.
TOVI_EXPORT char32_t TakeCodePoint(std::string_view& text);

/// printf into a CString.
[[gnu::format(printf, 1, 2)]] TOVI_EXPORT CString Format(const char* format, ...);
