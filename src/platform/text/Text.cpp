#include "platform/text/Text.h"

#include <algorithm>
#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <cstring>

namespace
{
constexpr std::string_view blanks = " \t\r\n";

struct FoldRange
{
    char32_t first;
    char32_t last;
    char32_t distance;
};

constexpr FoldRange foldRanges[] = {
    {U'A', U'Z', 0x20},     // Latin
    {0x0391, 0x03A9, 0x20}, // Greek
    {0x0410, 0x042F, 0x20}, // Cyrillic
    {0x0400, 0x040F, 0x50}, // Cyrillic extensions
    {U'Ａ', U'Ｚ', 0x20},   // full-width Latin
    {U'Ⅰ', U'Ⅻ', 0x10},     // Roman numerals
};

char32_t Folded(char32_t codePoint)
{
    for (const FoldRange& range : foldRanges) {
        if (codePoint >= range.first && codePoint <= range.last) return codePoint + range.distance;
    }
    return codePoint;
}

/// The length of the well-formed sequence at the front of \p text, or 0.
std::size_t SequenceLength(std::string_view text)
{
    const auto byte = [text](std::size_t i) {
        return i < text.size() ? static_cast<unsigned char>(text[i]) : 0u;
    };
    const auto follows = [byte](std::size_t i) { return (byte(i) & 0xC0) == 0x80; };
    const unsigned lead = byte(0);
    if (lead < 0x80) return 1;
    if (lead < 0xC2 || lead > 0xF4 || !follows(1)) return 0;
    if (lead < 0xE0) return 2;
    if (!follows(2)) return 0;
    if (lead < 0xF0) {
        const bool overlong = lead == 0xE0 && byte(1) < 0xA0;
        const bool surrogate = lead == 0xED && byte(1) > 0x9F;
        return overlong || surrogate ? 0 : 3;
    }
    const bool overlong = lead == 0xF0 && byte(1) < 0x90;
    const bool beyond = lead == 0xF4 && byte(1) > 0x8F;
    return overlong || beyond || !follows(3) ? 0 : 4;
}
} // namespace

CString FoldCase(std::string_view text)
{
    CString folded;
    folded.reserve(text.size());
    while (!text.empty()) {
        const auto front = static_cast<unsigned char>(text.front());
        // An ill-formed byte is part of the file name and has no counterpart in another case.
        if (front < 0x80) {
            folded += static_cast<char>(front >= 'A' && front <= 'Z' ? front + ('a' - 'A') : front);
            text.remove_prefix(1);
        } else if (SequenceLength(text) == 0) {
            folded += text.front();
            text.remove_prefix(1);
        } else {
            AppendUtf8(folded, Folded(TakeCodePoint(text)));
        }
    }
    return folded;
}

bool EqualNoCase(std::string_view left, std::string_view right)
{
    return left == right || FoldCase(left) == FoldCase(right);
}

CString ReplaceAll(CString text, std::string_view from, std::string_view to)
{
    std::size_t at = 0;
    while ((at = text.find(from, at)) != CString::npos) {
        text.replace(at, from.size(), to);
        at += to.size();
    }
    return text;
}

CString Trimmed(std::string_view text)
{
    text = TrimmedLeft(text);
    return CString(text.substr(0, text.find_last_not_of(blanks) + 1));
}

std::string_view TrimmedLeft(std::string_view text)
{
    return text.substr(std::min(text.find_first_not_of(blanks), text.size()));
}

bool IsUtf8(std::string_view text)
{
    while (!text.empty()) {
        std::uint64_t block = 0;
        if (text.size() >= sizeof block) {
            std::memcpy(&block, text.data(), sizeof block);
            if ((block & 0x8080808080808080u) == 0) {
                text.remove_prefix(sizeof block);
                continue;
            }
        }
        const std::size_t length = SequenceLength(text);
        if (length == 0) return false;
        text.remove_prefix(length);
    }
    return true;
}

void AppendUtf8(CString& text, char32_t codePoint)
{
    const auto put = [&text](char32_t byte) { text += static_cast<char>(byte); };
    if (codePoint < 0x80) {
        put(codePoint);
        return;
    }
    if (codePoint < 0x800) {
        put(0xC0 | codePoint >> 6);
    } else {
        if (codePoint < 0x10000) {
            put(0xE0 | codePoint >> 12);
        } else {
            put(0xF0 | codePoint >> 18);
            put(0x80 | (codePoint >> 12 & 0x3F));
        }
        put(0x80 | (codePoint >> 6 & 0x3F));
    }
    put(0x80 | (codePoint & 0x3F));
}

char32_t TakeCodePoint(std::string_view& text)
{
    constexpr char32_t leadMask[] = {0, 0x7F, 0x1F, 0x0F, 0x07};
    const std::size_t length = SequenceLength(text);
    if (length == 0) {
        text.remove_prefix(1);
        return U'\uFFFD';
    }
    char32_t codePoint = static_cast<unsigned char>(text[0]) & leadMask[length];
    for (std::size_t i = 1; i < length; ++i) {
        codePoint = codePoint << 6 | (static_cast<unsigned char>(text[i]) & 0x3F);
    }
    text.remove_prefix(length);
    return codePoint;
}

CString Format(const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    va_list again;
    va_copy(again, arguments);
    const int length = std::vsnprintf(nullptr, 0, format, arguments);
    va_end(arguments);
    CString text;
    if (length > 0) {
        text.resize(static_cast<std::size_t>(length) + 1);
        std::vsnprintf(text.data(), text.size(), format, again);
        text.pop_back();
    }
    va_end(again);
    return text;
}
