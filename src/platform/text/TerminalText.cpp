#include "platform/text/TerminalText.h"

#include <algorithm>

namespace
{
template <class Steers>
CString WithBlanks(std::string_view text, const Steers& steers)
{
    CString harmless;
    while (!text.empty()) {
        const char32_t codePoint = TakeCodePoint(text);
        AppendUtf8(harmless, steers(codePoint) ? U' ' : codePoint);
    }
    return harmless;
}
} // namespace

bool SteersTerminal(char32_t codePoint)
{
    return codePoint < 0x20 || (codePoint >= 0x7F && codePoint < 0xA0) ||
           (codePoint >= 0x202A && codePoint <= 0x202E) ||
           (codePoint >= 0x2066 && codePoint <= 0x2069);
}

CString HarmlessText(std::string_view text)
{
    return WithBlanks(
        text, [](char32_t codePoint) { return codePoint != U'\n' && SteersTerminal(codePoint); });
}

CString HarmlessLine(std::string_view text)
{
    return WithBlanks(text, SteersTerminal);
}

CString HarmlessJson(std::string_view json)
{
    // The first bytes of all of them.
    constexpr std::string_view signs = "\x7F\xC2\xE2";
    CString harmless;
    for (;;) {
        const std::size_t at = std::min(json.find_first_of(signs), json.size());
        harmless += json.substr(0, at);
        json.remove_prefix(at);
        if (json.empty()) return harmless;
        const char32_t codePoint = TakeCodePoint(json);
        if (SteersTerminal(codePoint)) {
            harmless += Format("\\u%04x", static_cast<unsigned>(codePoint));
        } else {
            AppendUtf8(harmless, codePoint);
        }
    }
}
