#pragma once

#include "platform/Text.h"

#include <optional>

/// The name of the encoding of a text file: a byte order mark wins, then what the XML declaration
/// at its front says ("Shift_JIS" means code page 932), then UTF-8 if all of \p bytes is that, else
/// code page 932. The result is "UTF-8", "CP932", "UTF-16LE", "UTF-16BE" or "EUC-JP-MS", or empty
/// when the declared name is none that is known here.
CString DetectEncoding(std::string_view bytes);

/// Decodes \p bytes to UTF-8, without the byte order mark. Nothing when they hold something that is
/// not in \p encoding, or when the encoding is not known here.
std::optional<CString> DecodeText(std::string_view bytes, const CString& encoding);

/// Decodes \p bytes in the encoding that DetectEncoding finds.
TOVI_EXPORT std::optional<CString> DecodeText(std::string_view bytes);

/// The whole text of the file \p path in UTF-8, decoded as it is read. Nothing when it can't be
/// read, has more than \p limit bytes, or holds something outside its encoding; \p readable then
/// tells the last from the others.
std::optional<CString> ReadTextFile(const CString& path, std::size_t limit, bool& readable);
