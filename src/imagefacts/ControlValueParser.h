#pragma once

#include "imagefacts/ToviControlValues.h"

#include <string_view>
#include <vector>

/// Replaces the values of \p out, a fresh object, by those of \p source:
///
///     名前:設計値 100・実測値 98・差 -2、名前:...
///
/// A part that doesn't parse is left out and makes \p out invalid; an empty text is valid. Takes
/// time in proportion to the text, whatever it is.
void ParseControlValues(std::string_view source, ToviControlValues& out);

/// The value in \p part, a text without 、 between measurements; null when it doesn't parse. A part
/// without a colon is a name.
std::unique_ptr<ToviControlValue> ParseControlValue(std::string_view part);

/// Replaces \p out by the stretches of \p text between the separators, empty ones too, but for an
/// empty one behind the last separator. They live as long as \p text. \p separator isn't empty.
void Split(std::string_view text, std::string_view separator, std::vector<std::string_view>& out);
