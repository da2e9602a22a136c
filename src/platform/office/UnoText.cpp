#include "platform/office/UnoText.h"

#include <array>
#include <cctype>
#include <cstdio>

rtl::OUString ToUno(std::string_view text)
{
    return {text.data(), static_cast<sal_Int32>(text.size()), RTL_TEXTENCODING_UTF8};
}

// The office's own conversion goes by the encoding of the locale, in which a name may not exist.
rtl::OUString FileUrl(std::string_view path)
{
    constexpr std::string_view plain = "/-._~";
    std::string url = "file://";
    for (const char c : path) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x80 && (std::isalnum(byte) != 0 || plain.find(c) != std::string_view::npos)) {
            url += c;
        } else {
            std::array<char, 4> escaped;
            std::snprintf(escaped.data(), escaped.size(), "%%%02X", byte);
            url += escaped.data();
        }
    }
    return ToUno(url);
}
