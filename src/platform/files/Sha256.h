#pragma once

#include "platform/text/Text.h"

#include <array>

/// The SHA-256 digest of some bytes.
using Sha256 = std::array<unsigned char, 32>;

Sha256 Sha256Of(std::string_view bytes);
