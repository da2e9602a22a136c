#pragma once

#include "hosts/cli/CommandLine.h"

#include <string>
#include <vector>

/// What the help of a program says, in both languages, whoever reads it.

struct Words
{
    std::string japanese;
    std::string english;
};

struct PageOption
{
    /// As it is typed: "--record", or "DELIVERY" for an argument.
    std::string name;
    Words help;
    /// What stands for its value; empty for none.
    std::string value = {};
    bool isRequired = false;
    /// The words that the value is one of; empty where it is anything.
    std::vector<std::string> choices = {};
    /// The same in one letter: "-h".
    std::string letter = {};

    bool IsArgument() const { return !name.starts_with('-'); }
};

struct PageCommand
{
    /// Empty for a program without commands.
    std::string name;
    Words help;
    std::vector<PageOption> options;
    /// Lines of their own.
    Words notes;
};

struct Page
{
    std::string program;
    std::string version;
    Words help;
    Words notes;
    std::vector<PageCommand> commands;
};

/// Each throws std::runtime_error where something lacks its English words.
Page PageOfTovi();
Page PageOfViewer();
Page PageOfSample();
