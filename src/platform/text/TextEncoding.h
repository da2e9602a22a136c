#pragma once

#include "platform/text/Text.h"

#include <optional>

/// The name of the encoding of a text file: a byte order mark wins, then what the XML declaration
/// at its front says ("Shift_JIS" means code page 932), then UTF-8 if all of \p bytes is that, else
/// code page 932. The result is "UTF-8", "CP932", "UTF-16LE", "UTF-16BE" or "EUC-JP-MS", or empty
/// when the declared name is none that is known here.
CString DetectEncoding(std::string_view bytes);

/// The encoding that the XML declaration at the front of \p bytes names, as above; empty where
/// there is no declaration or its name is none that is known here.
CString DeclaredEncoding(std::string_view bytes);

/// Decodes \p bytes to UTF-8, without the byte order mark. Nothing when they hold something that is
/// not in \p encoding, or when the encoding is not known here.
std::optional<CString> DecodeText(std::string_view bytes, const CString& encoding);

/// Decodes \p bytes in the encoding that DetectEncoding finds.
TOVI_EXPORT std::optional<CString> DecodeText(std::string_view bytes);
