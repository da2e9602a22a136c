#pragma once

#include <string_view>

/// The English words for what the table of commands says in Japanese; empty where they are missing.

std::string_view EnglishOfCommand(std::string_view command);
/// Of the lines behind the options of \p command.
std::string_view EnglishNotes(std::string_view command);
/// Most options mean the same in every command.
std::string_view EnglishOfOption(std::string_view command, std::string_view option);
