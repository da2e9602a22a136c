#pragma once

#include <CLI/CLI.hpp>

/// What the parser of the command line says, in the words of our users.

/// A check that a value is one of \p words.
CLI::Validator OneOf(const std::vector<std::string>& words);

/// A check that a value is a whole number from \p first to \p last.
CLI::Validator Between(int first, int last);

/// What is wrong with the command line \p arguments of \p app, at least one without the program,
/// that \p error has come of: a sentence or two.
std::string WhatIsWrong(const CLI::App& app, const std::vector<std::string>& arguments,
                        const CLI::ParseError& error);
