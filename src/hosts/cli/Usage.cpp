#include "hosts/cli/Usage.h"

#include "hosts/cli/NearWords.h"

#include <algorithm>
#include <charconv>

namespace
{
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

/// The command that the user has called; \p app itself without one.
const CLI::App& Called(const CLI::App& app)
{
    const std::vector<CLI::App*> called = app.get_subcommands();
    return called.empty() ? app : *called.front();
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
    return words + " は余分です。" +
           (first.starts_with('-') ? MeantPerhaps(first, NamesOf(Called(app).get_options())) : "");
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
} // namespace

CLI::Validator OneOf(const std::vector<std::string>& words)
{
    return {[words](std::string& value) {
                if (std::find(words.begin(), words.end(), value) != words.end())
                    return std::string();
                return CLI::detail::join(words, "、") + " のどれかを指定してください";
            },
            ""};
}

CLI::Validator Between(int first, int last)
{
    return {[first, last](std::string& value) {
                int number = 0;
                const char* const end = value.data() + value.size();
                const auto [at, error] = std::from_chars(value.data(), end, number);
                const bool fits =
                    error == std::errc() && at == end && number >= first && number <= last;
                if (fits) return std::string();
                return Format("%dから%dまでの数を指定してください", first, last);
            },
            ""};
}

std::string WhatIsWrong(const CLI::App& app, const std::vector<std::string>& arguments,
                        const CLI::ParseError& error)
{
    const std::string& word = arguments.front();
    const std::vector<CString> commands = NamesOf(app.get_subcommands(nullptr));
    const bool isCommand = std::find(commands.begin(), commands.end(), word) != commands.end();
    if (isCommand) return Translated(app, error);
    if (word.starts_with('-')) return WhatIsLeftOver(app, word);
    return "コマンド「" + word + "」はありません。" + MeantPerhaps(word, commands);
}
