#include "pages/Completions.h"

#include "pages/Files.h"

#include <sstream>

namespace
{
bool HasCommands(const Page& page)
{
    return !page.commands.front().name.empty();
}

std::string Joined(const std::vector<std::string>& words)
{
    std::string all;
    for (const std::string& word : words) all += (all.empty() ? "" : " ") + word;
    return all;
}

/// \p text in single quotes, with a backslash before each of \p special.
std::string Quoted(const std::string& text, std::string_view special)
{
    std::string quoted = "'";
    for (const char letter : text) {
        if (letter == '\'')
            quoted += "'\\''";
        else if (special.find(letter) != std::string_view::npos)
            quoted += std::string("\\") + letter;
        else
            quoted += letter;
    }
    return quoted + "'";
}

std::string OptionNames(const PageCommand& command)
{
    std::vector<std::string> names;
    for (const PageOption& option : command.options) {
        if (!option.IsArgument()) names.push_back(option.name);
    }
    names.emplace_back("--help");
    return Joined(names);
}

std::string CommandNames(const Page& page)
{
    std::vector<std::string> names;
    for (const PageCommand& command : page.commands) names.push_back(command.name);
    return Joined(names);
}

/// A case for each option that takes a value: its words, or else what the shell itself offers.
void BashValues(std::ostream& out, const PageCommand& command)
{
    for (const PageOption& option : command.options) {
        if (option.IsArgument() || option.value.empty()) continue;
        out << "    " << command.name << ":" << option.name << ") words='" << Joined(option.choices)
            << "' ;;\n";
    }
}

std::string Bash(const Page& page)
{
    std::ostringstream out;
    std::string function = "_" + page.program;
    for (char& letter : function) letter = letter == '-' ? '_' : letter;
    out << function << "()\n{\n"
        << "    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} "
           "command= words=\n";
    if (HasCommands(page)) {
        out << "    [ \"$COMP_CWORD\" -gt 1 ] && command=${COMP_WORDS[1]} || command=none\n";
    }
    out << "    case $command:$before in\n";
    if (HasCommands(page))
        out << "    none:*) words='" << CommandNames(page) << " --help --version' ;;\n";
    for (const PageCommand& command : page.commands) BashValues(out, command);
    for (const PageCommand& command : page.commands) {
        out << "    " << command.name << ":*) [[ $word == -* ]] && words='" << OptionNames(command)
            << "' ;;\n";
    }
    out << "    esac\n"
        << "    COMPREPLY=($(compgen -W \"$words\" -- \"$word\"))\n}\n"
        << "complete -o bashdefault -o default -F " << function << " " << page.program << "\n";
    return out.str();
}

void ZshArguments(std::ostream& out, const PageCommand& command, const char* indent)
{
    out << indent << "_arguments \\\n";
    for (const PageOption& option : command.options) {
        if (option.IsArgument()) continue;
        out << indent << "    "
            << Quoted("*" + option.name + "[", "") + Quoted(option.help.japanese, "[]\\:") +
                   Quoted("]", "");
        if (!option.value.empty()) {
            const std::string offered =
                option.choices.empty() ? "_files" : "(" + Joined(option.choices) + ")";
            out << Quoted(":", "") << Quoted(option.value, ":") << Quoted(":" + offered, "");
        }
        out << " \\\n";
    }
    out << indent << "    '--help[説明を表示する]' '*:file:_files'\n";
}

std::string Zsh(const Page& page)
{
    std::ostringstream out;
    out << "#compdef " << page.program << "\n\n";
    if (!HasCommands(page)) {
        ZshArguments(out, page.commands.front(), "");
        return out.str();
    }
    out << "if (( CURRENT == 2 )); then\n    local -a commands=(\n";
    for (const PageCommand& command : page.commands)
        out << "        " << Quoted(command.name + ":" + command.help.japanese, "") << "\n";
    out << "    )\n    _describe command commands\n    return\nfi\n"
        << "local command=$words[2]\nshift words\n(( CURRENT-- ))\ncase $command in\n";
    for (const PageCommand& command : page.commands) {
        out << command.name << ")\n";
        ZshArguments(out, command, "    ");
        out << "    ;;\n";
    }
    out << "esac\n";
    return out.str();
}

std::string Fish(const Page& page)
{
    std::ostringstream out;
    const std::string complete = "complete -c " + page.program;
    for (const PageCommand& command : page.commands) {
        std::string when;
        if (HasCommands(page)) {
            out << complete << " -n __fish_use_subcommand -a " << command.name << " -f -d "
                << Quoted(command.help.japanese, "\\") << "\n";
            when = " -n '__fish_seen_subcommand_from " + command.name + "'";
        }
        for (const PageOption& option : command.options) {
            if (option.IsArgument()) continue;
            out << complete << when << " -l " << option.name.substr(2);
            if (!option.choices.empty())
                out << " -x -a '" << Joined(option.choices) << "'";
            else if (!option.value.empty())
                out << " -r";
            out << " -d " << Quoted(option.help.japanese, "\\") << "\n";
        }
    }
    return out.str();
}
} // namespace

void WriteCompletions(const Page& page, const std::filesystem::path& folder)
{
    WriteText(folder / "bash" / page.program, Bash(page));
    WriteText(folder / "zsh" / ("_" + page.program), Zsh(page));
    WriteText(folder / "fish" / (page.program + ".fish"), Fish(page));
}
