#include "platform/text/Cp932.h"

#include <iconv.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <vector>

namespace
{
constexpr std::uint32_t firstLead = 0x81;
constexpr std::uint32_t trailsPerLead = 0x100;
constexpr std::uint32_t lastCode = 0xFCFC;
/// Codes that Windows reads but never writes, since the same characters stand elsewhere too.
constexpr std::uint32_t necSelectedFirst = 0xED40;
constexpr std::uint32_t necSelectedLast = 0xEEFC;

bool IsLead(unsigned char byte)
{
    return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
}

/// Both directions of the code page, taken once from the system's converter.
class Table
{
public:
    /// A decoded character: its UTF-8 bytes, ready to be copied, and their count (0: no character).
    struct Entry
    {
        char utf8[3];
        std::uint8_t length;
    };

    static const Table& Get()
    {
        static const Table table;
        return table;
    }

    const Entry& Single(unsigned char byte) const { return singles[byte]; }
    const Entry& Double(unsigned char lead, unsigned char trail) const
    {
        return doubles[(lead - firstLead) * trailsPerLead + trail];
    }
    /// The code of \p codePoint, 0 when it has none. Codes below 0x100 are single bytes.
    std::uint16_t CodeOf(char32_t codePoint) const
    {
        return codePoint < codes.size() ? codes[codePoint] : std::uint16_t{0};
    }

private:
    Table() : doubles((0xFC - firstLead + 1) * trailsPerLead), codes(0x10000)
    {
        converter = iconv_open("UTF-8", "CP932");
        if (converter == reinterpret_cast<iconv_t>(-1)) {
            throw std::runtime_error("the system has no converter for code page 932");
        }
        for (std::uint32_t byte = 0; byte < 0x100; ++byte) {
            const auto single = static_cast<unsigned char>(byte);
            if (!IsLead(single)) Learn(byte, singles[byte]);
        }
        for (std::uint32_t code = firstLead << 8; code <= lastCode; ++code) {
            const bool trail =
                (code & 0xFF) >= 0x40 && (code & 0xFF) <= 0xFC && (code & 0xFF) != 0x7F;
            if (trail && IsLead(static_cast<unsigned char>(code >> 8))) {
                Learn(code, doubles[code - (firstLead << 8)]);
            }
        }
        iconv_close(converter);
    }

    void Learn(std::uint32_t code, Entry& entry)
    {
        char in[2] = {static_cast<char>(code >> 8), static_cast<char>(code)};
        char* from = code < 0x100 ? in + 1 : in;
        std::size_t fromLeft = code < 0x100 ? 1 : 2;
        char* to = entry.utf8;
        std::size_t toLeft = sizeof entry.utf8;
        iconv(converter, nullptr, nullptr, nullptr, nullptr);
        if (iconv(converter, &from, &fromLeft, &to, &toLeft) == static_cast<std::size_t>(-1)) {
            entry.length = 0;
            return;
        }
        entry.length = static_cast<std::uint8_t>(sizeof entry.utf8 - toLeft);
        std::string_view decoded(entry.utf8, entry.length);
        std::uint16_t& known = codes[TakeCodePoint(decoded)];
        const bool knownIsBetter =
            known != 0 && (known < necSelectedFirst || known > necSelectedLast);
        if (!knownIsBetter) known = static_cast<std::uint16_t>(code);
    }

    iconv_t converter;
    std::array<Entry, 0x100> singles{};
    std::vector<Entry> doubles;
    std::vector<std::uint16_t> codes;
};

/// The first bytes of characters in a sort key. As numbers, the codes of half-width kana (one byte
/// from A0 to DF) are lower than all codes of two bytes, whose first byte may be lower (81 to 9F):
/// the kana go down to 81 to C0, and those first bytes up to C1 to DF.
constexpr unsigned char rankOutside = 0xFD;

constexpr int RankOfSingle(int byte)
{
    return byte < 0xA0 ? byte : byte - 0xA0 + 0x81;
}

constexpr int RankOfLead(int byte)
{
    return byte < 0xA0 ? byte - 0x81 + 0xC1 : byte;
}

/// True when every reader of Shift_JIS takes \p code for the character that it is here. Strict
/// readers know JIS X 0201 and JIS X 0208 alone, not the characters that makers have added in other
/// rows, and some take these few for a look-alike: \ ~ ― ＼ ～ ∥ － ￠ ￡ ￢.
bool IsSharedCode(std::uint16_t code)
{
    constexpr std::uint16_t disputed[] = {0x5C,   0x7E,   0x815C, 0x815F, 0x8160,
                                          0x8161, 0x817C, 0x8191, 0x8192, 0x81CA};
    if (std::find(std::begin(disputed), std::end(disputed), code) != std::end(disputed)) {
        return false;
    }
    if (code < 0x100) return (code != 0 && code < 0x80) || (code >= 0xA1 && code <= 0xDF);
    return code < 0x8540 || (code >= 0x889F && code <= 0xEAA4);
}

void AppendCode(std::string& bytes, std::uint16_t code)
{
    if (code >= 0x100) bytes += static_cast<char>(code >> 8);
    bytes += static_cast<char>(code);
}

/// As TakeCodePoint, of a text that isn't empty; that one is slower on the characters that Japanese
/// text is made of.
char32_t TakeCharacter(std::string_view& text)
{
    const auto byte = [text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const auto follows = [byte](std::size_t i) { return (byte(i) & 0xC0) == 0x80; };
    if (byte(0) < 0x80) {
        const char32_t character = byte(0);
        text.remove_prefix(1);
        return character;
    }
    // E0 and ED begin what is ill-formed, too.
    const bool isPlain = text.size() >= 3 && byte(0) > 0xE0 && byte(0) < 0xF0 && byte(0) != 0xED &&
                         follows(1) && follows(2);
    if (!isPlain) return TakeCodePoint(text);
    const auto codePoint =
        static_cast<char32_t>((byte(0) & 0x0F) << 12 | (byte(1) & 0x3F) << 6 | (byte(2) & 0x3F));
    text.remove_prefix(3);
    return codePoint;
}

/// The codes in the basic plane that every reader takes for the same, 0 for the others.
const std::vector<std::uint16_t>& SharedCodes()
{
    static const std::vector<std::uint16_t> codes = [] {
        std::vector<std::uint16_t> shared(0x10000);
        for (char32_t codePoint = 0; codePoint < shared.size(); ++codePoint) {
            const std::uint16_t code = Table::Get().CodeOf(codePoint);
            if (IsSharedCode(code)) shared[codePoint] = code;
        }
        return shared;
    }();
    return codes;
}

/// Encodes \p text and hands each character without a code to \p outside(bytes, codePoint), which
/// returns false to give up. The result tells whether the end was reached.
template <class Outside>
bool EncodeInto(std::string& bytes, std::string_view text, Outside outside)
{
    const Table& table = Table::Get();
    bytes.reserve(text.size());
    while (!text.empty()) {
        if (static_cast<unsigned char>(text.front()) < 0x80) {
            bytes += text.front();
            text.remove_prefix(1);
            continue;
        }
        const char32_t codePoint = TakeCharacter(text);
        if (const std::uint16_t code = table.CodeOf(codePoint); code != 0) {
            AppendCode(bytes, code);
        } else if (!outside(bytes, codePoint)) {
            return false;
        }
    }
    return true;
}
} // namespace

namespace Cp932
{
std::optional<CString> Decode(std::string_view bytes)
{
    CString text;
    text.reserve(bytes.size() * 3 / 2);
    Decoder decoder;
    if (!decoder.Add(bytes, text) || !decoder.Finish()) return std::nullopt;
    return text;
}

bool Decoder::Add(std::string_view bytes, CString& text)
{
    const Table& table = Table::Get();
    // Characters are copied as blocks of fixed size into a buffer that has room for one more;
    // without memcpy, which would be a call that checks that room for each of them.
    constexpr std::size_t widest = 8;
    std::array<char, 1 << 15> buffer;
    char* const full = buffer.data() + buffer.size() - widest;
    const char* from = bytes.data();
    const char* const end = from + bytes.size();
    while (from != end) {
        char* to = buffer.data();
        while (from != end && to <= full) {
            std::uint64_t block = 0;
            if (openLead == 0 && end - from >= static_cast<std::ptrdiff_t>(sizeof block)) {
                std::memcpy(&block, from, sizeof block);
                if ((block & 0x8080808080808080u) == 0) {
                    std::copy_n(from, sizeof block, to);
                    from += sizeof block;
                    to += sizeof block;
                    continue;
                }
            }
            const auto byte = static_cast<unsigned char>(*from++);
            if (openLead == 0 && IsLead(byte)) {
                openLead = byte;
                continue;
            }
            const Table::Entry& entry =
                openLead == 0 ? table.Single(byte) : table.Double(openLead, byte);
            openLead = 0;
            if (entry.length == 0) return false;
            static_assert(sizeof entry.utf8 == 3);
            to[0] = entry.utf8[0];
            to[1] = entry.utf8[1];
            to[2] = entry.utf8[2];
            to += entry.length;
        }
        text.append(buffer.data(), to);
    }
    return true;
}

std::optional<std::string> Encode(std::string_view text)
{
    std::string bytes;
    if (!EncodeInto(bytes, text, [](std::string&, char32_t) { return false; })) return std::nullopt;
    return bytes;
}

std::string EncodeForXml(std::string_view text)
{
    const std::vector<std::uint16_t>& codes = SharedCodes();
    std::string bytes;
    bytes.reserve(text.size());
    // Through a buffer that has room for one more: a string looks at its room for every byte.
    constexpr std::size_t widest = 16;
    std::array<char, 1 << 14> buffer;
    char* const full = buffer.data() + buffer.size() - widest;
    while (!text.empty()) {
        char* to = buffer.data();
        while (!text.empty() && to <= full) {
            const char32_t codePoint = TakeCharacter(text);
            const std::uint16_t code =
                codePoint < codes.size() ? codes[codePoint] : std::uint16_t{0};
            if (code >= 0x100) *to++ = static_cast<char>(code >> 8);
            if (code != 0) {
                *to++ = static_cast<char>(code);
                continue;
            }
            *to++ = '&';
            *to++ = '#';
            to = std::to_chars(to, full + widest, static_cast<std::uint32_t>(codePoint)).ptr;
            *to++ = ';';
        }
        bytes.append(buffer.data(), to);
    }
    return bytes;
}

int ByteLength(std::string_view text)
{
    std::string bytes;
    EncodeInto(bytes, text, [](std::string& out, char32_t) {
        out += "??";
        return true;
    });
    return static_cast<int>(bytes.size());
}

std::string SortKey(std::string_view text)
{
    std::string key;
    key.reserve(text.size());
    const Table& table = Table::Get();
    while (!text.empty()) {
        if (static_cast<unsigned char>(text.front()) < 0x80) {
            key += text.front();
            text.remove_prefix(1);
            continue;
        }
        const char32_t codePoint = TakeCharacter(text);
        const std::uint16_t code = table.CodeOf(codePoint);
        if (code == 0 || (code >= rankOutside && code < 0x100)) {
            key += static_cast<char>(rankOutside);
            for (int shift = 16; shift >= 0; shift -= 8)
                key += static_cast<char>(codePoint >> shift);
        } else if (code < 0x100) {
            key += static_cast<char>(RankOfSingle(code));
        } else {
            key += static_cast<char>(RankOfLead(code >> 8));
            key += static_cast<char>(code);
        }
    }
    return key;
}
} // namespace Cp932
