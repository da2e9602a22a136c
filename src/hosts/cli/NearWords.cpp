#include "hosts/cli/NearWords.h"

#include <algorithm>
#include <numeric>

namespace
{
constexpr std::size_t mostTold = 3;

std::u32string CodePoints(std::string_view text)
{
    std::u32string codePoints;
    while (!text.empty()) codePoints += TakeCodePoint(text);
    return codePoints;
}

/// How many characters have to be put in, taken out or changed to make one of the other.
std::size_t Distance(const std::u32string& left, const std::u32string& right)
{
    std::vector<std::size_t> row(right.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 1; i <= left.size(); ++i) {
        std::size_t diagonal = std::exchange(row[0], i);
        for (std::size_t j = 1; j <= right.size(); ++j) {
            const std::size_t changed = diagonal + (left[i - 1] == right[j - 1] ? 0 : 1);
            diagonal = row[j];
            row[j] = std::min({row[j] + 1, row[j - 1] + 1, changed});
        }
    }
    return row.back();
}

bool IsNear(const CString& word, const CString& other)
{
    if (!word.empty() && (other.starts_with(word) || word.starts_with(other))) return true;
    const std::u32string letters = CodePoints(word);
    return Distance(letters, CodePoints(other)) <= (letters.size() + 1) / 3;
}
} // namespace

CString MeantPerhaps(const CString& word, const std::vector<CString>& words)
{
    CString near;
    std::size_t told = 0;
    for (const CString& other : words) {
        if (told == mostTold || !IsNear(word, other)) continue;
        near += (told++ == 0 ? "" : "、") + other;
    }
    return near.empty() ? near : near + " のことですか。";
}
