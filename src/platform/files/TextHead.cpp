#include "platform/files/TextHead.h"

#include "platform/files/RegularFile.h"
#include "platform/text/TextEncoding.h"

#include <algorithm>

namespace
{
std::optional<std::string> ReadHead(const CString& path, std::size_t limit)
{
    const RegularFile file(path);
    if (!file.IsOpen()) return std::nullopt;
    std::string bytes(std::min<std::uint64_t>(limit, file.Size()), '\0');
    const ssize_t got = file.Read(bytes.data(), bytes.size());
    if (got < 0) return std::nullopt;
    bytes.resize(static_cast<std::size_t>(got));
    return bytes;
}

bool IsDoubleByte(std::string_view bytes)
{
    return DetectEncoding(bytes.substr(0, 4)).starts_with("UTF-16");
}

/// The text of \p bytes in UTF-16, whose last character may be cut off.
CString DecodeDoubleByte(std::string_view bytes)
{
    const std::string_view units = bytes.substr(0, bytes.size() & ~std::size_t{1});
    const auto whole = DecodeText(units);
    return whole ? *whole : DecodeText(units.substr(0, units.size() - 2)).value_or("");
}

bool HoldsOneOf(std::string_view line, std::initializer_list<std::string_view> words)
{
    return std::any_of(words.begin(), words.end(), [line](std::string_view word) {
        return line.find(word) != std::string_view::npos;
    });
}
} // namespace

std::optional<CString> FindHeadLine(const CString& path,
                                    std::initializer_list<std::string_view> words)
{
    auto head = ReadHead(path, headLineRange);
    if (!head) return std::nullopt;
    if (IsDoubleByte(*head)) head = DecodeDoubleByte(*head);
    for (std::string_view rest = *head; !rest.empty();) {
        const std::size_t end = std::min(rest.find('\n'), rest.size());
        std::string_view line = rest.substr(0, end);
        if (line.ends_with('\r')) line.remove_suffix(1);
        if (HoldsOneOf(line, words)) return CString(line);
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return CString();
}

CString ReadTextHead(const CString& path, std::size_t limit)
{
    const std::string bytes = ReadHead(path, limit).value_or("");
    if (IsDoubleByte(bytes)) return DecodeDoubleByte(bytes);
    // No multi-byte character of the other encodings holds the byte of a ">".
    return DecodeText(std::string_view(bytes).substr(0, bytes.rfind('>') + 1)).value_or("");
}
