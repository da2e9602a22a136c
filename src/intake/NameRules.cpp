#include "intake/IntakeRule.h"

#include "items/ToviItemDef.h"
#include "photos/ToviPhoto.h"
#include "platform/files/MibFile.h"
#include "platform/text/Cp932.h"

#include <algorithm>

namespace
{
using enum IntakeItem;

constexpr const char* drawingNameTitle = "参考図ファイル名";

bool IsUpperOrDigit(char c)
{
    return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
}

CString ToUpper(CString text)
{
    std::transform(text.begin(), text.end(), text.begin(),
                   [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; });
    return text;
}

/// A letter and seven of A–Z, 0–9 and _, a dot and three or four letters, of whichever case.
bool HasFormOfName(const CString& name, char first)
{
    constexpr std::size_t stem = 8;
    const CString upper = ToUpper(name);
    if (upper.size() < stem + 4 || upper.size() > stem + 5) return false;
    if (upper[0] != first || upper[stem] != '.') return false;
    return std::all_of(upper.begin(), upper.begin() + stem, IsUpperOrDigit) &&
           std::all_of(upper.begin() + stem + 1, upper.end(), IsUpperOrDigit);
}

bool IsBlank(std::string_view text)
{
    return TrimmedLeft(text).empty();
}

/// Calls \p look with each drawing's name that isn't empty.
void ForEachDrawingName(const IntakeDelivery& delivery,
                        const std::function<void(int photo, const CString& name)>& look)
{
    const int index = delivery.def.GetIndexFromTitle(drawingNameTitle);
    for (int i = 0; i < delivery.Count() && index >= 0; ++i) {
        for (const ToviItem& item : delivery.document.GetPhotoActualPhotoArray(i)->GetItems()) {
            if (item.GetDefIndex() == index && !IsBlank(item.GetValue())) look(i, item.GetValue());
        }
    }
}

void ForEachPhotoName(const IntakeDelivery& delivery,
                      const std::function<void(int photo, const CString& name)>& look)
{
    for (int i = 0; i < delivery.Count(); ++i) {
        const std::string_view name = delivery.photos[static_cast<std::size_t>(i)][PhotoName];
        if (!IsBlank(name)) look(i, CString(name));
    }
}

void TellPhotoNameForm(const IntakeDelivery& delivery, const TellSpot& tell)
{
    ForEachPhotoName(delivery, [&](int photo, const CString& name) {
        if (!HasFormOfName(name, 'P')) {
            tell({.photo = photo, .item = TitleOf(PhotoName), .detail = name});
        }
    });
}

void TellPhotoNameCase(const IntakeDelivery& delivery, const TellSpot& tell)
{
    ForEachPhotoName(delivery, [&](int photo, const CString& name) {
        const bool isLower = HasFormOfName(name, 'P') && name != ToUpper(name);
        if (isLower) tell({.photo = photo, .item = TitleOf(PhotoName)});
    });
}

/// The first generation has no form for names, but a length in bytes.
void TellLongPhotoName(const IntakeDelivery& delivery, const TellSpot& tell)
{
    constexpr int longest = 80;
    ForEachPhotoName(delivery, [&](int photo, const CString& name) {
        if (Cp932::ByteLength(name) > 2 * longest)
            tell({.photo = photo, .item = TitleOf(PhotoName)});
    });
}

void TellDrawingNameForm(const IntakeDelivery& delivery, const TellSpot& tell)
{
    ForEachDrawingName(delivery, [&](int photo, const CString& name) {
        if (!HasFormOfName(name, 'D')) {
            tell({.photo = photo, .item = drawingNameTitle, .detail = name});
        }
    });
}

void TellDrawingNameCase(const IntakeDelivery& delivery, const TellSpot& tell)
{
    ForEachDrawingName(delivery, [&](int photo, const CString& name) {
        const bool isLower = HasFormOfName(name, 'D') && name != ToUpper(name);
        if (isLower) tell({.photo = photo, .item = drawingNameTitle});
    });
}

/// Tells every photograph but the first of those with one key; an empty one is none.
void TellRepeated(const IntakeDelivery& delivery, IntakeItem item,
                  CString (*keyOf)(std::string_view value), const TellSpot& tell)
{
    std::unordered_map<CString, int> seen;
    for (int i = 0; i < delivery.Count(); ++i) {
        const std::string_view value = delivery.photos[static_cast<std::size_t>(i)][item];
        const CString key = keyOf(value);
        if (!key.empty() && !seen.emplace(key, i).second)
            tell({.photo = i, .item = TitleOf(item), .detail = CString(value)});
    }
}

bool IsNumber(std::string_view text)
{
    return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

CString NameKey(std::string_view value)
{
    return IsBlank(value) ? CString() : FoldCase(value);
}

CString NumberKey(std::string_view value)
{
    if (!IsNumber(value)) return {};
    const std::size_t first = value.find_first_not_of('0');
    return first == std::string_view::npos ? "0" : CString(value.substr(first));
}

/// Tells the values of \p item that aren't blank and of which \p isWrong.
void TellValues(const IntakeDelivery& delivery, IntakeItem item,
                bool (*isWrong)(std::string_view value), const TellSpot& tell)
{
    for (int i = 0; i < delivery.Count(); ++i) {
        const std::string_view value = delivery.photos[static_cast<std::size_t>(i)][item];
        if (!IsBlank(value) && isWrong(value)) tell({.photo = i, .item = TitleOf(item)});
    }
}

bool IsNoNumber(std::string_view value)
{
    return !IsNumber(value);
}

bool HasLeadingZero(std::string_view value)
{
    return IsNumber(value) && value.size() > 1 && value.front() == '0';
}

bool IsLongNumber(std::string_view value)
{
    constexpr std::size_t longest = 7;
    const std::size_t first = value.find_first_not_of('0');
    return IsNumber(value) && first != std::string_view::npos && value.size() - first > longest;
}

/// Tells names with an ending that \p isMeant doesn't know.
bool HasEnding(const CString& name, std::initializer_list<const char*> endings)
{
    const CString ending = MibGetExt(name);
    return std::any_of(endings.begin(), endings.end(),
                       [&ending](const char* each) { return EqualNoCase(ending, each); });
}

bool IsPictureName(const CString& name)
{
    return HasEnding(name, {".jpg", ".jpeg", ".tif", ".tiff", ".svg"});
}

void TellPhotoFormat(const IntakeDelivery& delivery, const TellSpot& tell)
{
    ForEachPhotoName(delivery, [&](int photo, const CString& name) {
        if (HasFormOfName(name, 'P') && !IsPictureName(name))
            tell({.photo = photo, .item = TitleOf(PhotoName), .detail = MibGetExt(name)});
    });
}

void TellDrawingFormat(const IntakeDelivery& delivery, const TellSpot& tell)
{
    ForEachDrawingName(delivery, [&](int photo, const CString& name) {
        if (HasFormOfName(name, 'D') && !IsPictureName(name))
            tell({.photo = photo, .item = drawingNameTitle, .detail = MibGetExt(name)});
    });
}

/// SVG photographs came with the edition of March 2023, TIFF with that of March 2020.
void TellFormatBeforeItsTime(const IntakeDelivery& delivery, const TellSpot& tell)
{
    constexpr int firstWithSvg = 202303;
    constexpr int firstWithTiff = 202003;
    const int month = delivery.standardMonth;
    if (month == 0) return;
    ForEachPhotoName(delivery, [&](int photo, const CString& name) {
        const bool isEarly = (month < firstWithSvg && HasEnding(name, {".svg"})) ||
                             (month < firstWithTiff && HasEnding(name, {".tif", ".tiff"}));
        if (isEarly) tell({.photo = photo, .item = TitleOf(PhotoName), .detail = MibGetExt(name)});
    });
}

constexpr unsigned all = AllGenerations;
constexpr unsigned since14 = all & ~Generation11;
using enum IntakeGrade;

constexpr IntakeRule rules[] = {
    {"photo-name-form", Error, since14, AllOwners, IntakeNeed::Nothing,
     "写真ファイル名がP、半角英大文字・数字・_ の7文字、拡張子3～4文字の形ではありません",
     "P0000001.JPG のような名前に直してもらう", TellPhotoNameForm},
    {"photo-name-letter-case", Hint, since14, AllOwners, IntakeNeed::Nothing,
     "写真ファイル名に小文字があります", "大文字で書くのが要領", TellPhotoNameCase},
    {"photo-name-long", Hint, Generation11, AllOwners, IntakeNeed::Nothing,
     "写真ファイル名が80文字を超えています", "短い名前に直してもらう", TellLongPhotoName},
    {"photo-name-twice", Error, all, AllOwners, IntakeNeed::Nothing,
     "同じ写真ファイル名の写真があります", "写真ごとに違う名前にしてもらう",
     [](const IntakeDelivery& d, const TellSpot& t) { TellRepeated(d, PhotoName, NameKey, t); }},
    {"drawing-name-form", Error, since14, AllOwners, IntakeNeed::Nothing,
     "参考図ファイル名がD、半角英大文字・数字・_ の7文字、拡張子3～4文字の形ではありません",
     "D0000001.JPG のような名前に直してもらう", TellDrawingNameForm},
    {"drawing-name-letter-case", Hint, since14, AllOwners, IntakeNeed::Nothing,
     "参考図ファイル名に小文字があります", "大文字で書くのが要領", TellDrawingNameCase},
    {"photo-format", Warning, since14, AllOwners, IntakeNeed::Nothing,
     "写真が JPEG・TIFF・SVG ではありません", "監督職員が承諾した形式か確かめる", TellPhotoFormat},
    {"photo-format-early", Warning, since14, OwnerMlit | OwnerKowan, IntakeNeed::Nothing,
     "この要領の版がまだ認めていない写真の形式です", "監督職員が承諾した形式か確かめる",
     TellFormatBeforeItsTime},
    {"drawing-format", Warning, since14, AllOwners, IntakeNeed::Nothing,
     "参考図が JPEG・TIFF・SVG ではありません", "監督職員が承諾した形式か確かめる",
     TellDrawingFormat},
    {"serial-not-number", Error, all, AllOwners, IntakeNeed::Nothing,
     "シリアル番号が半角数字だけではありません", "半角数字に直してもらう",
     [](const IntakeDelivery& d, const TellSpot& t) { TellValues(d, Serial, IsNoNumber, t); }},
    {"serial-twice", Error, all, AllOwners, IntakeNeed::Nothing, "同じシリアル番号の写真があります",
     "すべての媒体を通して違う番号にしてもらう",
     [](const IntakeDelivery& d, const TellSpot& t) { TellRepeated(d, Serial, NumberKey, t); }},
    {"serial-leading-zero", Warning, all, AllOwners, IntakeNeed::Nothing,
     "シリアル番号が0で始まっています", "前の0は要らない",
     [](const IntakeDelivery& d, const TellSpot& t) { TellValues(d, Serial, HasLeadingZero, t); }},
    {"serial-long", Error, all, AllOwners, IntakeNeed::Nothing, "シリアル番号が7桁を超えています",
     "7桁までの番号にしてもらう",
     [](const IntakeDelivery& d, const TellSpot& t) { TellValues(d, Serial, IsLongNumber, t); }},
    {"media-not-number", Error, all, AllOwners, IntakeNeed::Nothing,
     "メディア番号が半角数字だけではありません", "媒体の番号を半角数字で記入してもらう",
     [](const IntakeDelivery& d, const TellSpot& t) { TellValues(d, Media, IsNoNumber, t); }},
};
} // namespace

std::span<const IntakeRule> NameRules()
{
    return rules;
}
