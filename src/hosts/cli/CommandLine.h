#pragma once

#include <functional>
#include <optional>
#include <string>
#include <variant>
#include <vector>

/// The command line as data. The parser, the help and whatever else tells of the commands are made
/// from these tables.

/// The values that an option takes are these words.
struct OneOf
{
    std::vector<std::string> words;
};

/// They are the whole numbers from the first to the last.
struct Between
{
    int first;
    int last;
};

/// It says what is wrong with a value, in a sentence without its end; nothing when nothing is.
using WhatIsWrongWith = std::string (*)(const std::string& value);

enum class Need
{
    Optional,
    Required
};

/// An option, or an argument that is told by its place.
struct Option
{
    /// With the hyphens of an option: "--record".
    std::string name;
    std::string help;
    /// Where the value goes; what stands there beforehand is the default. A bool makes a flag, and
    /// an option with a vector may be repeated.
    std::variant<bool*, int*, std::optional<int>*, std::string*, std::optional<std::string>*,
                 std::vector<std::string>*, std::vector<unsigned int>*>
        target;
    /// What the help has for the value of an option; empty for a flag and for an argument.
    std::string valueName = {};
    Need need = Need::Optional;
    std::variant<std::monostate, OneOf, Between, WhatIsWrongWith> accepted = {};
    /// The option of the same command, before this one, that this one can't stand beside.
    std::string excluded = {};
    /// Whether several values may follow the name, not one alone; for a vector.
    bool takesMany = false;
};

using Options = std::vector<Option>;

/// All options of \p groups.
Options Joined(std::initializer_list<Options> groups);

struct Command
{
    std::string name;
    std::string help;
    Options options;
    /// The lines behind the options in the help; those of the program when empty.
    std::string footer = {};
    /// Runs the command with what stands in the targets of its options, which live as long as this
    /// function, and returns the exit status.
    std::function<int()> run;
};

struct Program
{
    std::string name;
    std::string version;
    std::string help;
    std::string footer;
    /// What each command takes behind its own options. The targets outlive the program.
    Options common;
    std::vector<Command> commands;
};

/// What a command line came to.
struct Call
{
    /// The command to be run, of the program's; null when the answer was already given.
    const Command* command = nullptr;
    /// The exit status then.
    int status = 0;
};

/// Puts the values of the command line into the targets of the command that it calls. Help and
/// version are written to standard output, what is wrong to standard error.
Call Parse(const Program& program, int argc, const char* const* argv);
