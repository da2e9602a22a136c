#pragma once

#include "platform/text/Text.h"

#include <array>
#include <optional>

/// The SHA-256 digest of some bytes.
using Sha256 = std::array<unsigned char, 32>;

Sha256 Sha256Of(std::string_view bytes);

/// That of the file \p path, however large it is; nothing when it can't be read.
std::optional<Sha256> Sha256OfFile(const CString& path);
