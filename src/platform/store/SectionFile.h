#pragma once

#include "platform/text/Text.h"

#include <cstddef>
#include <map>

/// Texts by section and entry, and the form they have in a file. Names compare without regard to
/// letter case.
///
/// The file is UTF-8 text of lines "[section]" and "entry=value"; entries in front of the first
/// section belong to the section without a name. Blanks around names and values do not count, and
/// lines that are empty or begin with ";" or "#" are left out. "%" and two hexadecimal digits (0 to
/// 9, A to F) stand for one byte: so are written "%" itself, control characters, a blank at an end,
/// "=", brackets, ";" and "#" in a name, and every byte beyond ASCII of a text that isn't UTF-8. A
/// backslash is a plain character.
class SectionFile
{
public:
    /// Bytes of the longest file.
    static constexpr std::size_t maximumSize = std::size_t{4} << 20;

    /// Takes the content of the file \p bytes in place of what is here. False when it is damaged.
    /// Of a file with lines that are none of the above the other lines are taken; nothing is taken
    /// of one that is too long or not UTF-8.
    [[nodiscard]] bool Parse(std::string_view bytes);

    /// The file, sections and entries in the order of their names.
    CString ToBytes() const;

    /// The value of an entry, or null. It stands until the entry is changed.
    const CString* Find(const CString& section, const CString& entry) const;
    void Set(const CString& section, const CString& entry, const CString& value);
    /// Sets all entries of \p other.
    void Merge(const SectionFile& other);

    bool operator==(const SectionFile&) const = default;

    /// The names of all sections, in order.
    CStringArray SectionNames() const;

private:
    struct NameLess
    {
        bool operator()(const CString& left, const CString& right) const
        {
            return FoldCase(left) < FoldCase(right);
        }
    };
    using Section = std::map<CString, CString, NameLess>;

    std::map<CString, Section, NameLess> sections;
};
