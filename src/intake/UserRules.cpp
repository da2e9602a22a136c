#include "intake/IntakeCheck.h"

#include "platform/files/MibFile.h"
#include "platform/files/TextFile.h"
#include "platform/text/Cp932.h"

#include <algorithm>
#include <charconv>

namespace
{
struct GradeRow
{
    const char* name;
    IntakeGrade grade;
};

constexpr GradeRow grades[] = {
    {"error", IntakeGrade::Error}, {"warning", IntakeGrade::Warning}, {"hint", IntakeGrade::Hint}};

std::vector<CString> Fields(std::string_view line, char separator)
{
    std::vector<CString> fields;
    for (std::size_t at = 0; at <= line.size();) {
        const std::size_t end = std::min(line.find(separator, at), line.size());
        fields.push_back(Trimmed(line.substr(at, end - at)));
        at = end + 1;
    }
    return fields;
}

using IsWrong = std::function<bool(std::string_view value)>;

/// What the condition with \p value finds; nothing when the value makes no sense to it, of which
/// \p why then tells.
using MakeCondition = IsWrong (*)(const CString& value, CString& why);

bool IsBlank(std::string_view text)
{
    return TrimmedLeft(text).empty();
}

IsWrong Required(const CString&, CString&)
{
    return IsBlank;
}

IsWrong Longest(const CString& value, CString& why)
{
    int most = 0;
    const auto [at, error] = std::from_chars(value.data(), value.data() + value.size(), most);
    constexpr int reasonable = 100'000;
    if (error != std::errc() || at != value.data() + value.size() || most < 1 ||
        most > reasonable) {
        why = "longest の値は1からの数です";
        return {};
    }
    return [most](std::string_view text) { return Cp932::ByteLength(text) > 2 * most; };
}

IsWrong OneOf(const CString& value, CString& why)
{
    if (value.empty()) why = "one-of の値がありません";
    return [words = Fields(value, '|')](std::string_view text) {
        return !IsBlank(text) && std::find(words.begin(), words.end(), text) == words.end();
    };
}

/// True when \p text fits \p pattern, in time of their product.
bool Fits(std::string_view pattern, std::string_view text)
{
    std::optional<std::pair<std::string_view, std::string_view>> retry;
    while (!text.empty()) {
        if (!pattern.empty() && pattern.front() == '*') {
            pattern.remove_prefix(1);
            retry = {pattern, text};
            continue;
        }
        std::string_view behindPattern = pattern;
        std::string_view behindText = text;
        const char32_t c = TakeCodePoint(behindText);
        const bool fits = !pattern.empty() && (pattern.front() == '?' || [&] {
            std::string_view rest = pattern;
            return TakeCodePoint(rest) == c;
        }());
        if (fits) {
            TakeCodePoint(behindPattern);
            pattern = behindPattern;
            text = behindText;
            continue;
        }
        if (!retry) return false;
        TakeCodePoint(retry->second);
        std::tie(pattern, text) = *retry;
    }
    return pattern.find_first_not_of('*') == std::string_view::npos;
}

IsWrong Like(const CString& value, CString& why)
{
    if (value.empty()) why = "like の値がありません";
    return [value](std::string_view text) { return !IsBlank(text) && !Fits(value, text); };
}

IsWrong Without(const CString& value, CString& why)
{
    if (value.empty()) why = "without の値がありません";
    return [value](std::string_view text) { return text.find(value) != std::string_view::npos; };
}

struct ConditionRow
{
    const char* name;
    MakeCondition make;
};

constexpr ConditionRow conditions[] = {{"required", Required},
                                       {"longest", Longest},
                                       {"one-of", OneOf},
                                       {"like", Like},
                                       {"without", Without}};

bool IsBuiltIn(const CString& id)
{
    const std::vector<const IntakeRule*> rules = AllIntakeRules();
    return std::any_of(rules.begin(), rules.end(),
                       [&id](const IntakeRule* rule) { return id == rule->id; });
}

/// Takes a line that grades a built-in rule; returns what is wrong with it.
CString TakeGrade(const std::vector<CString>& fields, UserRules& rules)
{
    if (!IsBuiltIn(fields[0])) return "「" + fields[0] + "」という組み込みの規則はありません";
    const std::optional<IntakeGrade> grade = GradeNamed(fields[1]);
    if (!grade && fields[1] != "off") return "重さは error、warning、hint、off のどれかです";
    rules.grades[fields[0]] = grade;
    return {};
}

/// Takes a line that adds a rule; returns what is wrong with it.
CString TakeRule(const std::vector<CString>& fields, UserRules& rules)
{
    const auto [id, gradeName, item, conditionName, value] =
        std::tie(fields[0], fields[1], fields[2], fields[3], fields[4]);
    if (IsBuiltIn(id)) return "「" + id + "」は組み込みの規則の名前です";
    const std::optional<IntakeGrade> grade = GradeNamed(gradeName);
    if (!grade) return "重さは error、warning、hint のどれかです";
    if (item.empty()) return "項目がありません";
    const auto* const condition =
        std::find_if(std::begin(conditions), std::end(conditions),
                     [&](const ConditionRow& row) { return conditionName == row.name; });
    if (condition == std::end(conditions))
        return "条件は required、longest、one-of、like、without のどれかです";
    CString why;
    IsWrong isWrong = condition->make(value, why);
    if (!why.empty()) return why;
    CString sentence = fields[5];
    for (std::size_t i = 6; i < fields.size(); ++i) sentence += "," + fields[i];
    rules.rules.push_back({id, *grade, item, sentence, std::move(isWrong)});
    return {};
}

CString Take(std::string_view line, UserRules& rules)
{
    const std::vector<CString> fields = Fields(line, ',');
    if (fields[0].empty()) return "規則の名前がありません";
    if (fields.size() == 2) return TakeGrade(fields, rules);
    constexpr std::size_t fieldsOfRule = 6;
    if (fields.size() < fieldsOfRule)
        return "「規則,重さ」か「名前,重さ,項目,条件,値,文」の形ではありません";
    return TakeRule(fields, rules);
}
} // namespace

const char* NameOf(IntakeGrade grade)
{
    return grades[static_cast<std::size_t>(grade)].name;
}

std::optional<IntakeGrade> GradeNamed(std::string_view name)
{
    for (const GradeRow& row : grades) {
        if (name == row.name) return row.grade;
    }
    return std::nullopt;
}

std::optional<UserRules> ReadUserRules(const CString& path)
{
    constexpr std::size_t largest = std::size_t{1} << 20;
    bool isReadable = false;
    const std::optional<CString> text = ReadTextFile(path, largest, isReadable);
    if (!text) return std::nullopt;
    return ParseUserRules(*text, MibGetFileName(path));
}

UserRules ParseUserRules(std::string_view text, const CString& name)
{
    UserRules rules;
    int number = 0;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        const CString line = Trimmed(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
        ++number;
        if (line.empty() || line.starts_with('#')) continue;
        CString mistake = Take(line, rules);
        if (!mistake.empty())
            rules.mistakes.push_back({name + Format(":%d", number), std::move(mistake)});
    }
    return rules;
}
