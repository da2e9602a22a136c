#include "intake/IntakeRule.h"

#include "items/ToviItemDef.h"
#include "platform/text/Cp932.h"

#include <algorithm>

namespace
{
/// The kinds of characters that the standards tell apart.
enum class CharacterKind
{
    Plain,
    Control,
    HalfWidthKana,
    FullWidthAlphanumeric,
    /// ①, Ⅰ, ㈱ and their like, which machines show differently.
    MachineDependent,
    Private,
    /// Outside of JIS X 0208 altogether.
    Foreign
};

bool IsIn(char32_t c, char32_t first, char32_t last)
{
    return c >= first && c <= last;
}

/// By the code in code page 932: JIS X 0208 has the rows 1 to 8 and 16 to 84 there.
CharacterKind KindByCode(char32_t c)
{
    // The same characters under the names that others than Windows have for them.
    constexpr char32_t otherNames[] = {0x301C, 0x2212, 0x2016, 0x2014, 0xA2, 0xA3, 0xAC};
    if (std::find(std::begin(otherNames), std::end(otherNames), c) != std::end(otherNames))
        return CharacterKind::Plain;
    CString text;
    AppendUtf8(text, c);
    const std::optional<std::string> code = Cp932::Encode(text);
    if (!code || code->size() != 2) return CharacterKind::Foreign;
    const auto lead = static_cast<unsigned char>((*code)[0]);
    if (lead <= 0x84 || IsIn(lead, 0x88, 0x9F) || IsIn(lead, 0xE0, 0xEA))
        return CharacterKind::Plain;
    return IsIn(lead, 0xF0, 0xF9) ? CharacterKind::Private : CharacterKind::MachineDependent;
}

CharacterKind JudgedKind(char32_t c)
{
    if (c < 0x20 || c == 0x7F) return CharacterKind::Control;
    if (c < 0x7F) return CharacterKind::Plain;
    if (IsIn(c, 0xFF61, 0xFF9F)) return CharacterKind::HalfWidthKana;
    if (IsIn(c, 0xFF10, 0xFF19) || IsIn(c, 0xFF21, 0xFF3A) || IsIn(c, 0xFF41, 0xFF5A))
        return CharacterKind::FullWidthAlphanumeric;
    if (IsIn(c, 0xE000, 0xF8FF)) return CharacterKind::Private;
    return KindByCode(c);
}

/// The same, with the characters that were judged before kept: a delivery has some hundreds of
/// them, each a thousand times.
CharacterKind KindOf(char32_t c)
{
    constexpr std::size_t kept = 0x10000;
    constexpr unsigned char unknown = 0xFF;
    thread_local std::vector<unsigned char> kinds(kept, unknown);
    if (c >= kept) return JudgedKind(c);
    unsigned char& kind = kinds[c];
    if (kind == unknown) kind = static_cast<unsigned char>(JudgedKind(c));
    return static_cast<CharacterKind>(kind);
}

bool Holds(std::string_view text, CharacterKind kind)
{
    while (!text.empty()) {
        if (KindOf(TakeCodePoint(text)) == kind) return true;
    }
    return false;
}

bool IsValue(const Definition& each)
{
    return each.readType == ReadPhotoItem && each.operation != StepChild;
}

/// Calls \p wrong with each different value of each item, and tells the photographs with those of
/// which it says what is wrong, one for each saying.
void TellValues(const IntakeDelivery& delivery,
                const std::function<CString(const Definition& item, const CString& value)>& wrong,
                const TellSpot& tell)
{
    for (int index = 0; index < delivery.def.GetCount(); ++index) {
        const Definition& item = delivery.def[index];
        if (!IsValue(item)) continue;
        const ItemColumn& column = delivery.columns.Of(index);
        std::unordered_map<CString, std::vector<bool>> bySaying;
        for (std::size_t i = 0; i < column.Values().size(); ++i) {
            CString saying = wrong(item, column.Values()[i]);
            if (saying.empty()) continue;
            std::vector<bool>& wanted = bySaying[std::move(saying)];
            wanted.resize(column.Values().size());
            wanted[i] = true;
        }
        for (const auto& [saying, wanted] : bySaying) {
            for (int photo = 0; photo < delivery.Count(); ++photo) {
                if (column.HasAny(photo, wanted))
                    tell({.photo = photo, .item = item.title, .detail = saying});
            }
        }
    }
}

constexpr const char* somewhere = " ";

template <CharacterKind kind>
void Characters(const IntakeDelivery& delivery, const TellSpot& tell)
{
    // One finding an item: which characters they are differs from value to value.
    TellValues(
        delivery,
        [](const Definition&, const CString& value) { return Holds(value, kind) ? somewhere : ""; },
        [&tell](IntakeSpot spot) {
            spot.detail.clear();
            tell(std::move(spot));
        });
}

struct Length
{
    const char* title;
    /// In full-width characters.
    int longest;
    unsigned generations;
};

constexpr unsigned all = AllGenerations;
constexpr int usualLength = 127;
/// Those of the other items.
constexpr Length lengths[] = {{"写真区分", 16, Generation14}};
/// Their forms are looked at by rules of their own.
constexpr const char* withoutLength[] = {"シリアル番号",    "写真ファイル名", "メディア番号",
                                         "撮影年月日",      "代表写真",       "提出頻度写真",
                                         "参考図ファイル名"};

int LongestOf(const IntakeDelivery& delivery, const CString& title)
{
    for (const Length& length : lengths) {
        if (title == length.title && (length.generations & delivery.generation) != 0)
            return length.longest;
    }
    return usualLength;
}

void TellLong(const IntakeDelivery& delivery, const TellSpot& tell)
{
    TellValues(
        delivery,
        [&delivery](const Definition& item, const CString& value) -> CString {
            const auto isThis = [&item](const char* title) { return item.title == title; };
            if (std::any_of(std::begin(withoutLength), std::end(withoutLength), isThis)) return {};
            const int longest = LongestOf(delivery, item.title);
            return Cp932::ByteLength(value) > 2 * longest ? Format("全角%d文字まで", longest) : "";
        },
        tell);
}

void TellBlanks(const IntakeDelivery& delivery, const TellSpot& tell)
{
    TellValues(
        delivery,
        [](const Definition&, const CString& value) {
            return value.empty() || Trimmed(value) == value ? "" : somewhere;
        },
        [&tell](IntakeSpot spot) {
            spot.detail.clear();
            tell(std::move(spot));
        });
}

using enum IntakeGrade;
constexpr IntakeNeed nothing = IntakeNeed::Nothing;

constexpr IntakeRule rules[] = {
    {"text-half-width-kana", Warning, all, AllOwners, nothing, "半角カナが使われています",
     "全角カナに直してもらう", Characters<CharacterKind::HalfWidthKana>},
    {"text-full-width-alphanumeric", Warning, all, AllOwners, nothing,
     "全角の英数字が使われています", "半角の英数字に直してもらう",
     Characters<CharacterKind::FullWidthAlphanumeric>},
    {"text-machine-dependent", Warning, all, AllOwners, nothing,
     "機種依存文字（①、Ⅰ、㈱、髙 など）が使われています", "JIS X 0208 の文字に直してもらう",
     Characters<CharacterKind::MachineDependent>},
    {"text-private", Warning, all, AllOwners, nothing, "外字が使われています",
     "JIS X 0208 の文字に直してもらう", Characters<CharacterKind::Private>},
    {"text-foreign", Warning, all, AllOwners, nothing, "JIS X 0208 にない文字が使われています",
     "JIS X 0208 の文字に直してもらう", Characters<CharacterKind::Foreign>},
    {"text-control", Warning, all, AllOwners, nothing, "改行や制御文字が値の中にあります",
     "1行の文字に直してもらう", Characters<CharacterKind::Control>},
    {"text-long", Error, all & ~Generation11, AllOwners, nothing, "値が要領の文字数を超えています",
     "短くしてもらう", TellLong},
    {"text-blanks", Hint, all, AllOwners, nothing, "値の前後に空白があります",
     "検索や並べ替えで別の値になる", TellBlanks},
};
} // namespace

std::span<const IntakeRule> TextRules()
{
    return rules;
}
