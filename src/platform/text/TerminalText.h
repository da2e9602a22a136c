#pragma once

#include "platform/text/Text.h"

/// The door to the terminal. File names, values of a delivery and words of the command line may
/// hold characters that steer it: control characters and those that turn the direction of writing,
/// by which a name can pass for another.

/// True for such a character.
bool SteersTerminal(char32_t codePoint);

/// \p text with a blank in place of each such character but line ends.
CString HarmlessText(std::string_view text);

/// \p text with a blank in place of each of them, line ends too.
TOVI_EXPORT CString HarmlessLine(std::string_view text);

/// The JSON text \p json, whose control characters below the blank are escaped, with the others
/// escaped as well: it says the same.
TOVI_EXPORT CString HarmlessJson(std::string_view json);
