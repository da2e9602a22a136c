#pragma once

#include "platform/text/Text.h"

#include <initializer_list>
#include <optional>

/// What the front of a text file says, however large the file is.

/// How far FindHeadLine looks.
constexpr std::size_t headLineRange = std::size_t{64} << 10;

/// The first line with one of \p words in the first headLineRange bytes of the file \p path,
/// without its line end; empty when there is none. Of a file in UTF-16 it comes in UTF-8, of every
/// other as it stands, which is enough to search it for ASCII words. Nothing when the file can't be
/// read.
std::optional<CString> FindHeadLine(const CString& path,
                                    std::initializer_list<std::string_view> words);

/// The text at the front of the file \p path, up to \p limit bytes of it, in UTF-8. It ends behind
/// a whole tag. Empty when the file can't be read or its bytes are not in its encoding.
CString ReadTextHead(const CString& path, std::size_t limit);
