#include "platform/text/TextEncoding.h"

#include "platform/text/Cp932.h"

#include <iconv.h>

#include <array>
#include <cerrno>

namespace
{
struct ByteOrderMark
{
    std::string_view bytes;
    const char* encoding;
};

constexpr ByteOrderMark marks[] = {
    {"\xEF\xBB\xBF", "UTF-8"},
    {"\xFF\xFE", "UTF-16LE"},
    {"\xFE\xFF", "UTF-16BE"},
    // UTF-16 without a mark shows in the first character of its declaration.
    {std::string_view("<\0?\0", 4), "UTF-16LE"},
    {std::string_view("\0<\0?", 4), "UTF-16BE"},
};

struct EncodingName
{
    const char* declared;
    const char* meant;
};

constexpr EncodingName names[] = {
    {"shift_jis", "CP932"},  {"shift-jis", "CP932"},    {"sjis", "CP932"},
    {"x-sjis", "CP932"},     {"ms_kanji", "CP932"},     {"windows-31j", "CP932"},
    {"cp932", "CP932"},      {"utf-8", "UTF-8"},        {"utf8", "UTF-8"},
    {"euc-jp", "EUC-JP-MS"}, {"x-euc-jp", "EUC-JP-MS"}, {"us-ascii", "UTF-8"},
};

/// What the XML declaration at the front of \p bytes says, or empty.
CString DeclaredName(std::string_view bytes)
{
    if (!bytes.starts_with("<?xml")) return {};
    const std::string_view declaration = bytes.substr(0, bytes.find("?>"));
    const std::size_t word = declaration.find("encoding");
    if (word == std::string_view::npos) return {};
    const std::size_t open = declaration.find_first_of("\"'", word);
    if (open == std::string_view::npos) return {};
    const std::size_t close = declaration.find(declaration[open], open + 1);
    if (close == std::string_view::npos) return {};
    return CString(declaration.substr(open + 1, close - open - 1));
}

/// The converter's name for a declared one; empty when it is none of those that deliveries come in.
CString MeantEncoding(const CString& declared)
{
    for (const EncodingName& name : names) {
        if (EqualNoCase(declared, name.declared)) return name.meant;
    }
    return {};
}

std::optional<CString> DecodeWithSystem(std::string_view bytes, const CString& encoding)
{
    const iconv_t converter = iconv_open("UTF-8", encoding.c_str());
    if (converter == reinterpret_cast<iconv_t>(-1)) return std::nullopt;
    CString text;
    std::array<char, 1 << 16> block;
    char* from = const_cast<char*>(bytes.data());
    std::size_t left = bytes.size();
    bool valid = true;
    while (left > 0 && valid) {
        char* to = block.data();
        std::size_t room = block.size();
        const std::size_t result = iconv(converter, &from, &left, &to, &room);
        text.append(block.data(), block.size() - room);
        valid = result != static_cast<std::size_t>(-1) || errno == E2BIG;
    }
    iconv_close(converter);
    if (!valid) return std::nullopt;
    return text;
}
} // namespace

CString DeclaredEncoding(std::string_view bytes)
{
    return MeantEncoding(DeclaredName(bytes));
}

CString DetectEncoding(std::string_view bytes)
{
    for (const ByteOrderMark& mark : marks) {
        if (bytes.starts_with(mark.bytes)) return mark.encoding;
    }
    const CString declared = DeclaredName(bytes);
    // A file that says "UTF-16" in single bytes can't be that.
    if (!declared.empty() && !EqualNoCase(declared.substr(0, 6), "utf-16")) {
        return MeantEncoding(declared);
    }
    return IsUtf8(bytes) ? "UTF-8" : "CP932";
}

std::optional<CString> DecodeText(std::string_view bytes, const CString& encoding)
{
    for (const ByteOrderMark& mark : marks) {
        const bool isMark = mark.bytes.front() != '<' && mark.bytes.front() != '\0';
        if (isMark && encoding == mark.encoding && bytes.starts_with(mark.bytes)) {
            bytes.remove_prefix(mark.bytes.size());
        }
    }
    if (encoding == "CP932") return Cp932::Decode(bytes);
    if (encoding == "UTF-8") return IsUtf8(bytes) ? std::optional<CString>(bytes) : std::nullopt;
    if (encoding.empty()) return std::nullopt;
    return DecodeWithSystem(bytes, encoding);
}

std::optional<CString> DecodeText(std::string_view bytes)
{
    return DecodeText(bytes, DetectEncoding(bytes));
}
