#include "platform/text/SearchFolding.h"

#include <unicode/bytestream.h>
#include <unicode/normalizer2.h>

#include <stdexcept>

namespace
{
const icu::Normalizer2& CompatibilityCasefold()
{
    UErrorCode error = U_ZERO_ERROR;
    const icu::Normalizer2* const normalizer = icu::Normalizer2::getNFKCCasefoldInstance(error);
    if (U_FAILURE(error)) throw std::runtime_error(u_errorName(error));
    return *normalizer;
}

/// What Unicode tells apart and the writers of Japanese don't.
char32_t FoldedFurther(char32_t c)
{
    constexpr char32_t katakanaToHiragana = U'ァ' - U'ぁ';
    if ((c >= U'ァ' && c <= U'ヶ') || c == U'ヽ' || c == U'ヾ') return c - katakanaToHiragana;
    // Which of them stands for a full-width hyphen or tilde depends on who decoded a file.
    if ((c >= U'\u2010' && c <= U'\u2015') || c == U'\u2212') return U'-';
    if (c == U'\u301C') return U'~';
    if (c < U' ' || c == U'\u2028' || c == U'\u2029') return U' ';
    return c;
}

bool IsAscii(std::string_view text)
{
    for (const char c : text) {
        if (static_cast<signed char>(c) < 0) return false;
    }
    return true;
}

CString FoldedAscii(std::string_view text)
{
    CString folded(text);
    for (char& c : folded) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
        if (c >= 0 && c < ' ') c = ' ';
    }
    return folded;
}
} // namespace

CString FoldForSearch(std::string_view text)
{
    if (IsAscii(text)) return FoldedAscii(text);
    static const icu::Normalizer2& normalizer = CompatibilityCasefold();
    CString normalized;
    icu::StringByteSink<CString> sink(&normalized, static_cast<std::int32_t>(text.size()));
    UErrorCode error = U_ZERO_ERROR;
    normalizer.normalizeUTF8(0, {text.data(), static_cast<std::int32_t>(text.size())}, sink,
                             nullptr, error);
    if (U_FAILURE(error)) throw std::runtime_error(u_errorName(error));
    CString folded;
    folded.reserve(normalized.size());
    for (std::string_view rest = normalized; !rest.empty();) {
        AppendUtf8(folded, FoldedFurther(TakeCodePoint(rest)));
    }
    return folded;
}

std::vector<CString> SearchWords(std::string_view text)
{
    const CString folded = FoldForSearch(text);
    std::vector<CString> words;
    for (std::size_t end = 0; end < folded.size();) {
        const std::size_t begin = folded.find_first_not_of(' ', end);
        if (begin == CString::npos) break;
        end = std::min(folded.find(' ', begin), folded.size());
        words.push_back(folded.substr(begin, end - begin));
    }
    return words;
}
