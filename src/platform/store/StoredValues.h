#pragma once

#include "platform/host/ProfileStore.h"

#include <type_traits>
#include <variant>
#include <vector>

/// Settings in the form that they have in the profile store: integers and flags 100 higher than
/// what they say, so that anything below 100 was never saved.

/// Takes over an integer that was saved; leaves \p value as it is when there is none.
void ReadStored(const ProfileStore& profile, const char* section, const char* entry, int& value);
/// The same for a flag: every stored value above 100 is true.
void ReadStored(const ProfileStore& profile, const char* section, const char* entry, bool& value);

/// The same for an enumeration, whose range is not checked.
template <class Enum>
requires std::is_enum_v<Enum>
void ReadStored(const ProfileStore& profile, const char* section, const char* entry, Enum& value)
{
    int number = value;
    ReadStored(profile, section, entry, number);
    value = static_cast<Enum>(number);
}

/// An entry of a section with its value as it is stored.
struct StoredEntry
{
    CString name;
    std::variant<int, CString> value;
    bool operator==(const StoredEntry&) const = default;
};

/// The entry of an integer or a flag.
StoredEntry StoredNumber(const char* name, int value);

/// What a settings object knows of its section of the profile store: as last read or written by it.
/// It goes with every copy of the values, so that whoever saves them writes what was changed in
/// them, and nothing over what another program has changed meanwhile.
class StoredSection
{
public:
    using Entries = std::vector<StoredEntry>;

    /// The store has \p entries, or defaults that say the same.
    void Note(Entries entries) { noted = std::move(entries); }
    /// Writes those of \p entries that are not as noted, in their order, and notes them all. False
    /// at the first one that could not be kept, behind which none is written; nothing is noted
    /// then.
    bool Write(const char* section, Entries entries);

private:
    Entries noted;
};
