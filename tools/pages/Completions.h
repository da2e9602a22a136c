#pragma once

#include "pages/Page.h"

#include <filesystem>

/// Writes what completes the command line of \p page in bash, zsh and fish, to the folders of these
/// names under \p folder. Throws std::runtime_error when a file can't be written.
void WriteCompletions(const Page& page, const std::filesystem::path& folder);
