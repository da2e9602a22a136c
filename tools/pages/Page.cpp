#include "pages/Page.h"

#include "hosts/cli/Commands.h"
#include "hosts/viewer/ViewerOptionRows.h"
#include "pages/EnglishWords.h"
#include "sample/SampleOptionRows.h"

#include <stdexcept>

namespace
{
/// A page is the same whoever's machine makes it.
constexpr const char* profilePath = "~/.config/tovi/profile.ini";

std::string Known(std::string_view words, const std::string& whose)
{
    if (words.empty()) {
        throw std::runtime_error("tools/pages/EnglishWords.cpp has no English words for " + whose);
    }
    return std::string(words);
}

PageOption Described(const Command& command, const Option& option)
{
    const std::string whose = "tovi " + command.name + " " + option.name;
    PageOption described = {option.name,
                            {option.help, Known(EnglishOfOption(command.name, option.name), whose)},
                            option.valueName,
                            option.need == Need::Required};
    if (const auto* oneOf = std::get_if<OneOf>(&option.accepted)) described.choices = oneOf->words;
    if (const std::size_t mark = described.value.find("（"); mark != std::string::npos)
        described.value.resize(mark);
    return described;
}

PageCommand Described(const Command& command, const Options& common)
{
    PageCommand described = {
        command.name,
        {command.help, Known(EnglishOfCommand(command.name), "tovi " + command.name)},
        {},
        {command.footer, std::string(EnglishNotes(command.name))}};
    if (!command.footer.empty()) {
        Known(described.notes.english, "the lines behind the options of tovi " + command.name);
    }
    for (const Option& option : Joined({command.options, common}))
        described.options.push_back(Described(command, option));
    return described;
}
} // namespace

Page PageOfTovi()
{
    std::string profile = profilePath;
    const Program program = AllOfTovi(profile);
    Page page = {program.name,
                 program.version,
                 {program.help, "Opens and examines the site photographs of an electronic delivery "
                                "of Japanese public works. Writes JSON in UTF-8 to standard output "
                                "and what is wrong to standard error, never into a delivery."},
                 {program.footer, "tovi COMMAND --help tells of a command.\n"
                                  "Exit status: 0 done, 1 can't be opened, read or saved, 2 wrong "
                                  "usage, 130 interrupted"},
                 {}};
    for (const Command& command : program.commands)
        page.commands.push_back(Described(command, program.common));
    return page;
}

Page PageOfViewer()
{
    PageCommand windows;
    for (const ViewerOptionRow& row : ViewerOptionRows())
        windows.options.push_back(
            {row.name, {row.help, row.english}, row.value, false, {}, row.letter});
    return {"tovi-viewer",
            TOVI_VERSION,
            {viewerHelp, "Opens the site photographs of an electronic delivery of Japanese public "
                         "works for inspection. Never writes into a delivery."},
            {"F1 キーで使い方、? キーでキーの一覧を表示する。",
             "F1 opens the manual, ? shows all keys."},
            {windows}};
}

Page PageOfSample()
{
    PageCommand making;
    for (const SampleOptionRow& row : sampleOptionRows) {
        making.options.push_back({row.name,
                                  {row.japanese, row.help},
                                  row.value,
                                  !std::string(row.name).starts_with('-')});
    }
    return {
        "tovi-sample",
        TOVI_VERSION,
        {"工事写真の電子納品データの見本を作る。", "Makes a sample delivery of site photographs."},
        {"終了コード: 0 正常、1 作れない、2 使い方の誤り",
         "Exit status: 0 done, 1 can't be made, 2 wrong usage"},
        {making}};
}
