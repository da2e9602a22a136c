#include "imagefacts/ControlValueParser.h"

#include <algorithm>

namespace
{
using Texts = std::vector<std::string_view>;

constexpr std::string_view partSeparator = "、";
constexpr std::string_view tokenSeparator = "・";
constexpr char nameEnd = ':';

struct Kind
{
    std::string_view baseWord;
    void (ToviControlValue::*set)(CString text);
};

// An entry is of the first kind that fits.
constexpr Kind kinds[] = {{"設計", &ToviControlValue::SetDesign},
                          {"実測", &ToviControlValue::SetActual},
                          {"差", &ToviControlValue::SetDifference}};

// What may stand behind a base word as a part of the prefix. The first that fits is removed, so
// that in 設計 値 the 値 belongs to the value.
constexpr std::string_view prefixEnds[] = {"値 ", "寸法 ", " ", "値", "寸法", ""};

/// The kind of the entry that \p text begins, or null.
const Kind* KindOf(std::string_view text)
{
    const auto* kind = std::find_if(std::begin(kinds), std::end(kinds), [text](const Kind& known) {
        return text.starts_with(known.baseWord);
    });
    return kind == std::end(kinds) ? nullptr : kind;
}

/// Joins \p tokens to entries that each begin with a kind's prefix. Any other token continues a
/// value that holds a separator itself; false when there is none before it.
bool CollectEntries(const Texts& tokens, Texts& entries)
{
    for (const std::string_view token : tokens) {
        const std::string_view start = TrimmedLeft(token);
        if (KindOf(start) != nullptr) {
            entries.push_back(start);
        } else if (entries.empty()) {
            return false;
        } else {
            // Tokens lie one behind the other, so that a longer view is the joined text.
            const char* const begin = entries.back().data();
            entries.back() = {begin, token.data() + token.size()};
        }
    }
    return true;
}

/// A base word that occurs in two entries, at whatever place, leaves their meaning open.
bool IsUnambiguous(const Texts& entries)
{
    return std::all_of(std::begin(kinds), std::end(kinds), [&entries](const Kind& kind) {
        return std::count_if(entries.begin(), entries.end(), [&kind](std::string_view entry) {
                   return entry.find(kind.baseWord) != std::string_view::npos;
               }) < 2;
    });
}

void Assign(std::string_view entry, ToviControlValue& value)
{
    const Kind& kind = *KindOf(entry);
    entry.remove_prefix(kind.baseWord.size());
    const auto* end =
        std::find_if(std::begin(prefixEnds), std::end(prefixEnds),
                     [entry](std::string_view known) { return entry.starts_with(known); });
    entry.remove_prefix(end->size());
    (value.*kind.set)(Trimmed(entry));
}

bool ParseFigures(std::string_view text, ToviControlValue& value)
{
    Texts tokens;
    Texts entries;
    Split(text, tokenSeparator, tokens);
    if (!CollectEntries(tokens, entries)) return false;
    if (entries.size() > std::size(kinds) || !IsUnambiguous(entries)) return false;
    for (const std::string_view entry : entries) Assign(entry, value);
    return true;
}
} // namespace

void ParseControlValues(std::string_view source, ToviControlValues& out)
{
    out.RemoveAll();
    Texts parts;
    Split(source, partSeparator, parts);
    for (const std::string_view part : parts) {
        if (std::unique_ptr<ToviControlValue> value = ParseControlValue(part)) {
            out.Add(std::move(value));
        } else {
            out.SetInvalid();
        }
    }
}

std::unique_ptr<ToviControlValue> ParseControlValue(std::string_view part)
{
    if (part.empty()) return nullptr;
    auto value = std::make_unique<ToviControlValue>();
    const std::size_t colon = part.find(nameEnd);
    value->SetName(Trimmed(part.substr(0, colon)));
    if (colon == std::string_view::npos) return value;
    const CString figures = Trimmed(part.substr(colon + 1));
    return ParseFigures(figures, *value) ? std::move(value) : nullptr;
}

void Split(std::string_view text, std::string_view separator, std::vector<std::string_view>& out)
{
    out.clear();
    std::size_t begin = 0;
    while (begin < text.size()) {
        const std::size_t end = std::min(text.find(separator, begin), text.size());
        out.push_back(text.substr(begin, end - begin));
        begin = end + separator.size();
    }
}
