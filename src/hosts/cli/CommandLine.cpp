#include "hosts/cli/CommandLine.h"

#include "hosts/cli/NearWords.h"
#include "hosts/cli/Outcome.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <charconv>

namespace
{
constexpr const char* optionGroup = "オプション";
constexpr const char* commandGroup = "コマンド";
constexpr const char* requiredMark = "（必須）";

bool IsArgument(const Option& option)
{
    return !option.name.starts_with('-');
}

/// What the parser says of a value that isn't accepted.
struct Refusal
{
    const std::string& value;

    std::string operator()(std::monostate) const { return {}; }
    std::string operator()(const OneOf& accepted) const
    {
        const auto& words = accepted.words;
        if (std::find(words.begin(), words.end(), value) != words.end()) return {};
        return CLI::detail::join(words, "、") + " のどれかを指定してください";
    }
    std::string operator()(const Between& accepted) const
    {
        int number = 0;
        const char* const end = value.data() + value.size();
        const auto [at, error] = std::from_chars(value.data(), end, number);
        const bool fits = error == std::errc() && at == end && number >= accepted.first &&
                          number <= accepted.last;
        if (fits) return {};
        return Format("%dから%dまでの数を指定してください", accepted.first, accepted.last);
    }
    std::string operator()(WhatIsWrongWith whatIsWrong) const { return whatIsWrong(value); }
};

/// Adds an option to a command by the type of its target.
struct Addition
{
    CLI::App& command;
    const Option& option;

    CLI::Option* operator()(bool* target) const
    {
        return command.add_flag(option.name, *target, option.help);
    }
    CLI::Option* operator()(std::optional<std::string>* target) const
    {
        // The parser's own way with an optional takes an empty text for none.
        const auto set = [target](const std::string& value) { *target = value; };
        return command.add_option_function<std::string>(option.name, set, option.help);
    }
    template <class Value>
    CLI::Option* operator()(std::vector<Value>* target) const
    {
        return command.add_option(option.name, *target, option.help)
            ->allow_extra_args(option.takesMany);
    }
    template <class Value>
    CLI::Option* operator()(Value* target) const
    {
        return command.add_option(option.name, *target, option.help);
    }
};

void Add(CLI::App& command, const Option& option)
{
    CLI::Option* const added = std::visit(Addition{command, option}, option.target);
    const bool isRequired = option.need == Need::Required;
    added->required(isRequired);
    if (IsArgument(option)) {
        added->option_text(isRequired ? requiredMark : " ");
    } else {
        added->option_text(option.valueName);
    }
    if (!std::holds_alternative<std::monostate>(option.accepted)) {
        added->check([accepted = option.accepted](const std::string& value) {
            return std::visit(Refusal{value}, accepted);
        });
    }
    if (!option.excluded.empty()) added->excludes(command.get_option(option.excluded));
}

void Add(CLI::App& app, const Command& command, const Options& common)
{
    CLI::App* const added = app.add_subcommand(command.name, command.help);
    added->group(commandGroup);
    added->get_help_ptr()->group(optionGroup);
    for (const Option& option : Joined({command.options, common})) Add(*added, option);
    if (!command.footer.empty()) added->footer(command.footer);
}

void Describe(CLI::App& app, const Program& program)
{
    app.description(program.help);
    app.footer(program.footer);
    app.name(program.name);
    app.require_subcommand(1);
    app.option_defaults()->group(optionGroup);
    app.set_help_flag("-h,--help", "この説明を表示する")->group(optionGroup);
    app.set_version_flag("--version", program.name + " " + program.version, "名前と版を表示する");
    const auto formatter = std::dynamic_pointer_cast<CLI::Formatter>(app.get_formatter());
    const std::pair<const char*, const char*> labels[] = {
        {"Usage", "使い方"},           {"Positionals", "引数"},    {"Options", optionGroup},
        {"Subcommands", commandGroup}, {"REQUIRED", requiredMark}, {"OPTIONS", optionGroup},
        {"SUBCOMMAND", commandGroup}};
    for (const auto& [label, text] : labels) formatter->label(label, text);
    formatter->column_width(24);
    for (const Command& command : program.commands) Add(app, command, program.common);
}

/// The part of \p text behind the last \p mark; all of it without one.
std::string Behind(const std::string& text, std::string_view mark)
{
    const std::size_t at = text.rfind(mark);
    return at == std::string::npos ? text : text.substr(at + mark.size());
}

std::string Before(const std::string& text, std::string_view mark)
{
    return text.substr(0, text.find(mark));
}

/// The command that the user has called; null without one.
const CLI::App* Called(const CLI::App& app)
{
    const std::vector<CLI::App*> called = app.get_subcommands();
    return called.empty() ? nullptr : called.front();
}

/// Of commands or of options.
template <typename Named>
std::vector<CString> NamesOf(const std::vector<const Named*>& named)
{
    std::vector<CString> names;
    for (const Named* each : named) names.push_back(each->get_name());
    return names;
}

std::string WhatIsLeftOver(const CLI::App& app, const std::string& words)
{
    const std::string first = Before(words, " ");
    const CLI::App* const called = Called(app);
    const auto options = (called == nullptr ? app : *called).get_options();
    return words + " は余分です。" +
           (first.starts_with('-') ? MeantPerhaps(first, NamesOf(options)) : "");
}

template <typename Kind>
bool Is(const CLI::ParseError& error)
{
    return dynamic_cast<const Kind*>(&error) != nullptr;
}

/// Takes what the user has written out of the parser's own words.
std::string Translated(const CLI::App& app, const CLI::ParseError& error)
{
    const std::string words = error.what();
    if (Is<CLI::ExtrasError>(error)) return WhatIsLeftOver(app, Behind(words, "expected: "));
    if (Is<CLI::RequiredError>(error))
        return Before(words, " is required") + " を指定してください。";
    if (Is<CLI::ExcludesError>(error)) {
        return Before(words, " excludes ") + " と " + Behind(words, " excludes ") +
               " は一緒に指定できません。";
    }
    if (Is<CLI::ValidationError>(error)) {
        return Before(words, ": ") + " は、" + Behind(words, ": ") + "。";
    }
    if (Is<CLI::ConversionError>(error)) {
        return Behind(words, "Could not convert: ") + " は値として正しくありません。";
    }
    const std::string option = Before(Before(Behind(words, " to "), ":"), ",");
    return option + " の値を1つ指定してください。";
}

/// What is wrong with a command line that begins with \p word, in a sentence or two.
std::string WhatIsWrong(const CLI::App& app, const std::string& word, const CLI::ParseError& error)
{
    const std::vector<CString> commands = NamesOf(app.get_subcommands(nullptr));
    const bool isCommand = std::find(commands.begin(), commands.end(), word) != commands.end();
    if (isCommand) return Translated(app, error);
    if (word.starts_with('-')) return WhatIsLeftOver(app, word);
    return "コマンド「" + word + "」はありません。" + MeantPerhaps(word, commands);
}
} // namespace

Options Joined(std::initializer_list<Options> groups)
{
    Options options;
    for (const Options& group : groups) {
        options.insert(options.end(), group.begin(), group.end());
    }
    return options;
}

Call Parse(const Program& program, int argc, const char* const* argv)
{
    CLI::App app;
    Describe(app, program);
    if (argc < 2) {
        std::cerr << app.help();
        return {nullptr, ExitWrongUsage};
    }
    try {
        app.parse(argc, argv);
        const std::string name = Called(app)->get_name();
        return {&*std::find_if(program.commands.begin(), program.commands.end(),
                               [&name](const Command& each) { return each.name == name; })};
    } catch (const CLI::Success& answer) {
        return {nullptr, app.exit(answer)};
    } catch (const CLI::ParseError& error) {
        const CLI::App* const called = Called(app);
        Complain("使い方が正しくありません。" + WhatIsWrong(app, argv[1], error) + "tovi " +
                 (called == nullptr ? "" : called->get_name() + " ") +
                 "--help で確かめてください。");
        return {nullptr, ExitWrongUsage};
    }
}
