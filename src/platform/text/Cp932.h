#pragma once

#include "platform/text/Text.h"

#include <optional>

/// Code page 932 as Windows has it (①, ㈱, 髙, ～ U+FF5E, － U+FF0D): the encoding of files that
/// are declared Shift_JIS, and the system's measure for lengths and sort orders. Any thread may
/// call its functions.
namespace Cp932
{
/// Decodes \p bytes to UTF-8; nothing when a byte stands outside the code page or the last
/// double-byte character is cut off.
TOVI_EXPORT std::optional<CString> Decode(std::string_view bytes);

/// Decodes a file piece by piece.
class Decoder
{
public:
    /// Appends \p bytes to \p text as UTF-8. False when a byte stands outside the code page.
    bool Add(std::string_view bytes, CString& text);
    /// Tells that there is no more. False when a double-byte character is cut off.
    bool Finish() const { return openLead == 0; }

private:
    /// The first half of a character whose second half is yet to come, or 0.
    unsigned char openLead = 0;
};

/// Encodes \p text; nothing when a character has no place in the code page.
TOVI_EXPORT std::optional<std::string> Encode(std::string_view text);

/// Encodes \p text for an XML file that declares Shift_JIS and that any XML reader must take for
/// the same text: what stands outside JIS X 0201 and JIS X 0208 (①, 髙) or is another character to
/// some readers (～, －) becomes a numeric character reference.
TOVI_EXPORT std::string EncodeForXml(std::string_view text);

/// The number of bytes that \p text takes in the code page. A character outside of it counts 2.
TOVI_EXPORT int ByteLength(std::string_view text);

/// Bytes that sort \p text character by character in the order of the codes, when they are compared
/// as unsigned numbers: characters of one byte, half-width kana among them, before all of two. A
/// character outside the code page sorts behind all of it, by its code point.
TOVI_EXPORT std::string SortKey(std::string_view text);
} // namespace Cp932
