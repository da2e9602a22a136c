#pragma once

#include "pages/Page.h"

#include <filesystem>

/// Writes the manual pages of \p page to man1/ and ja/man1/ under \p folder, which it makes: one of
/// the program and one of each command. Throws std::runtime_error when a file can't be written.
void WriteManPages(const Page& page, const std::filesystem::path& folder);
