#include "platform/store/SectionFile.h"

#include <optional>

namespace
{
constexpr char escapeMark = '%';
constexpr std::string_view marksInNames = "%=[];#";
constexpr std::string_view marksInValues = "%";
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

CString Escaped(std::string_view text, std::string_view marks)
{
    const bool utf8 = IsUtf8(text);
    CString escaped;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        const bool blankAtEnd = byte == ' ' && (i == 0 || i + 1 == text.size());
        const bool control = byte < 0x20 || byte == 0x7F;
        const bool mark = marks.find(text[i]) != std::string_view::npos;
        if (blankAtEnd || control || mark || (byte >= 0x80 && !utf8)) {
            escaped += Format("%c%02X", escapeMark, byte);
        } else {
            escaped += text[i];
        }
    }
    return escaped;
}

std::optional<int> HexDigit(char digit)
{
    if (digit >= '0' && digit <= '9') return digit - '0';
    if (digit >= 'A' && digit <= 'F') return digit - 'A' + 10;
    return std::nullopt;
}

/// A "%" that is not followed by two digits stands for itself.
CString Unescaped(std::string_view text)
{
    CString plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto high = i + 2 < text.size() ? HexDigit(text[i + 1]) : std::nullopt;
        const auto low = high ? HexDigit(text[i + 2]) : std::nullopt;
        if (text[i] == escapeMark && low) {
            plain += static_cast<char>(*high * 16 + *low);
            i += 2;
        } else {
            plain += text[i];
        }
    }
    return plain;
}

/// Takes the first line off \p bytes; returns it without its end and the blanks around it.
CString TakeLine(std::string_view& bytes)
{
    const std::size_t end = bytes.find('\n');
    CString line = Trimmed(bytes.substr(0, end));
    bytes.remove_prefix(end == std::string_view::npos ? bytes.size() : end + 1);
    return line;
}

/// The name in the line "[name]", or nothing when it is not closed.
std::optional<CString> SectionName(std::string_view line)
{
    if (line.size() < 2 || line.back() != ']') return std::nullopt;
    return Unescaped(Trimmed(line.substr(1, line.size() - 2)));
}
} // namespace

bool SectionFile::Parse(std::string_view bytes)
{
    sections.clear();
    if (bytes.size() > maximumSize || !IsUtf8(bytes)) return false;
    if (bytes.starts_with(byteOrderMark)) bytes.remove_prefix(byteOrderMark.size());
    bool sound = true;
    // Nothing behind a heading that can't be read: its entries belong to no other section.
    std::optional<CString> section = CString();
    while (!bytes.empty()) {
        const CString line = TakeLine(bytes);
        if (line.empty() || line.front() == ';' || line.front() == '#') continue;
        const std::size_t equals = line.find('=');
        if (line.front() == '[') {
            section = SectionName(line);
            sound = sound && section;
        } else if (section && equals != CString::npos) {
            Set(*section, Unescaped(Trimmed(line.substr(0, equals))),
                Unescaped(Trimmed(line.substr(equals + 1))));
        } else {
            sound = false;
        }
    }
    return sound;
}

CString SectionFile::ToBytes() const
{
    CString bytes;
    for (const auto& [name, entries] : sections) {
        bytes += '[' + Escaped(name, marksInNames) + "]\n";
        for (const auto& [entry, value] : entries) {
            bytes += Escaped(entry, marksInNames) + '=' + Escaped(value, marksInValues) + '\n';
        }
    }
    return bytes;
}

const CString* SectionFile::Find(const CString& section, const CString& entry) const
{
    const auto entries = sections.find(section);
    if (entries == sections.end()) return nullptr;
    const auto value = entries->second.find(entry);
    return value == entries->second.end() ? nullptr : &value->second;
}

void SectionFile::Set(const CString& section, const CString& entry, const CString& value)
{
    sections[section][entry] = value;
}

void SectionFile::Merge(const SectionFile& other)
{
    for (const auto& [name, entries] : other.sections) {
        for (const auto& [entry, value] : entries) Set(name, entry, value);
    }
}

CStringArray SectionFile::SectionNames() const
{
    CStringArray names;
    for (const auto& section : sections) names.Add(section.first);
    return names;
}
