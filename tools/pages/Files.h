#pragma once

#include <filesystem>
#include <string>

/// Writes \p text to \p file and makes its folder. Throws std::runtime_error when that fails.
void WriteText(const std::filesystem::path& file, const std::string& text);
