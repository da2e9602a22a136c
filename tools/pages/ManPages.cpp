#include "pages/ManPages.h"

#include "pages/Files.h"

#include <sstream>

namespace
{
using Language = std::string Words::*;

/// The titles of sections, which man(7) gives.
struct Titles
{
    Language language;
    const char* folder;
    const char* name;
    const char* synopsis;
    const char* description;
    const char* commands;
    const char* arguments;
    const char* options;
    const char* notes;
    const char* seeAlso;
    const char* helpOption;
    const char* required;
};

constexpr Titles languages[] = {
    {&Words::english, "man1", "NAME", "SYNOPSIS", "DESCRIPTION", "COMMANDS", "ARGUMENTS", "OPTIONS",
     "NOTES", "SEE ALSO", "tell the usage", " (required)"},
    {&Words::japanese, "ja/man1", "名前", "書式", "説明", "コマンド", "引数", "オプション", "補足",
     "関連項目", "説明を表示する", "（必須）"}};

/// \p text as roff shows it letter for letter; a line may end behind a comma.
std::string Plain(const std::string& text)
{
    std::string plain;
    bool atLineStart = true;
    for (const char letter : text) {
        if (atLineStart && (letter == '.' || letter == '\'')) plain += "\\&";
        atLineStart = letter == '\n';
        if (letter == '\\')
            plain += "\\e";
        else if (letter == '-')
            plain += "\\-";
        else if (letter == ',')
            plain += ",\\:";
        else
            plain += letter;
    }
    return plain;
}

/// The name of a page. That of tovi sample would be the program tovi-sample's.
std::string FullName(const Page& page, const PageCommand& command)
{
    if (command.name.empty()) return page.program;
    const std::string name = page.program + "-" + command.name;
    return name == "tovi-sample" ? name + "-command" : name;
}

/// A whole text as what stands beside a name: without the end of the sentence.
std::string Short(std::string text)
{
    for (const std::string end : {"。", ". "}) {
        if (const auto at = text.find(end); at != std::string::npos) text.resize(at);
    }
    if (text.ends_with('.')) text.pop_back();
    return text;
}

class ManPage
{
public:
    ManPage(const Titles& theTitles, const Page& page, const std::string& name,
            const std::string& summary)
        : titles(theTitles)
    {
        out << ".TH \"" << Plain(name) << "\" 1 \"\" \"Tovi " << Plain(page.version)
            << "\" \"Tovi\"\n.ad l\n.nh\n";
        Section(titles.name);
        out << Plain(name) << " \\- " << Plain(Short(summary)) << '\n';
    }

    void Section(const char* title) { out << ".SH \"" << title << "\"\n"; }
    void Text(const std::string& text)
    {
        std::istringstream lines(text);
        const char* between = "";
        for (std::string line; std::getline(lines, line); between = ".br\n")
            out << between << Plain(line) << '\n';
    }
    void Item(const std::string& tag, const std::string& text)
    {
        out << ".TP\n" << tag << '\n' << Plain(text) << '\n';
    }
    void Synopsis(const std::string& program, const PageCommand& command)
    {
        Section(titles.synopsis);
        out << ".B " << Plain(program);
        if (!command.name.empty()) out << ' ' << Plain(command.name);
        out << "\n[\\fIOPTION\\fR]...\n";
        for (const PageOption& option : command.options) {
            if (!option.IsArgument()) continue;
            const std::string name = "\\fI" + Plain(option.name) + "\\fR";
            out << (option.isRequired ? name : "[" + name + "]") << '\n';
        }
    }
    void Options(const PageCommand& command)
    {
        for (const bool arguments : {true, false}) {
            const char* title = arguments ? titles.arguments : titles.options;
            for (const PageOption& option : command.options) {
                if (option.IsArgument() != arguments) continue;
                if (title != nullptr) Section(title);
                title = nullptr;
                const bool tells = option.isRequired && !arguments;
                Item(Tag(option), option.help.*titles.language + (tells ? titles.required : ""));
            }
        }
        if (!command.name.empty()) Item("\\fB\\-h\\fR, \\fB\\-\\-help\\fR", titles.helpOption);
    }
    void SeeAlso(const std::vector<std::string>& names)
    {
        Section(titles.seeAlso);
        const char* between = "";
        for (const std::string& name : names) {
            out << between << "\\fB" << Plain(name) << "\\fR(1)";
            between = ",\n";
        }
        out << '\n';
    }

    std::string All() const { return out.str(); }

private:
    static std::string Tag(const PageOption& option)
    {
        const char* const font = option.IsArgument() ? "\\fI" : "\\fB";
        std::string tag = font + Plain(option.name) + "\\fR";
        if (!option.letter.empty()) tag.insert(0, font + Plain(option.letter) + "\\fR, ");
        if (!option.value.empty()) tag += " \\fI" + Plain(option.value) + "\\fR";
        return tag;
    }

    const Titles& titles;
    std::ostringstream out;
};

std::string ProgramPage(const Titles& titles, const Page& page)
{
    const Language language = titles.language;
    ManPage out(titles, page, page.program, page.help.*language);
    const bool hasCommands = !page.commands.front().name.empty();
    std::vector<std::string> others = {"tovi", "tovi-viewer", "tovi-sample"};
    if (hasCommands) {
        out.Synopsis(page.program, {"", {}, {{"COMMAND", {}, "", true}}, {}});
    } else {
        out.Synopsis(page.program, page.commands.front());
    }
    out.Section(titles.description);
    out.Text(page.help.*language);
    if (hasCommands) {
        out.Section(titles.commands);
        for (const PageCommand& command : page.commands) {
            out.Item("\\fB" + command.name + "\\fR", command.help.*language);
            others.push_back(FullName(page, command));
        }
    } else {
        out.Options(page.commands.front());
    }
    out.Section(titles.notes);
    out.Text(page.notes.*language);
    std::erase(others, page.program);
    out.SeeAlso(others);
    return out.All();
}

std::string CommandPage(const Titles& titles, const Page& page, const PageCommand& command)
{
    const Language language = titles.language;
    ManPage out(titles, page, FullName(page, command), command.help.*language);
    out.Synopsis(page.program, command);
    out.Section(titles.description);
    out.Text(page.help.*language);
    out.Options(command);
    if (!(command.notes.*language).empty()) {
        out.Section(titles.notes);
        out.Text(command.notes.*language);
    }
    out.SeeAlso({page.program});
    return out.All();
}
} // namespace

void WriteManPages(const Page& page, const std::filesystem::path& folder)
{
    for (const Titles& titles : languages) {
        const std::filesystem::path place = folder / titles.folder;
        WriteText(place / (page.program + ".1"), ProgramPage(titles, page));
        for (const PageCommand& command : page.commands) {
            if (command.name.empty()) continue;
            WriteText(place / (FullName(page, command) + ".1"), CommandPage(titles, page, command));
        }
    }
}
