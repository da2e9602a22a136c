#include "platform/store/StoredValues.h"

#include "platform/host/HostServices.h"

#include <algorithm>

namespace
{
constexpr int storedBias = 100;
constexpr int neverSaved = -1;

bool WriteEntry(ProfileStore& profile, const char* section, const StoredEntry& entry)
{
    if (const auto* number = std::get_if<int>(&entry.value)) {
        return profile.WriteProfileInt(section, entry.name, *number);
    }
    return profile.WriteProfileString(section, entry.name, std::get<CString>(entry.value));
}
} // namespace

void ReadStored(const ProfileStore& profile, const char* section, const char* entry, int& value)
{
    const int stored = profile.GetProfileInt(section, entry, neverSaved);
    if (stored >= storedBias) value = stored - storedBias;
}

void ReadStored(const ProfileStore& profile, const char* section, const char* entry, bool& value)
{
    int number = value;
    ReadStored(profile, section, entry, number);
    value = number != 0;
}

StoredEntry StoredNumber(const char* name, int value)
{
    return {name, value + storedBias};
}

bool StoredSection::Write(const char* section, Entries entries)
{
    ProfileStore* profile = GetHostServices().profile;
    if (profile == nullptr) return false;
    if (entries == noted) return true;
    const auto isKept = [&](const StoredEntry& entry) {
        return std::find(noted.begin(), noted.end(), entry) != noted.end() ||
               WriteEntry(*profile, section, entry);
    };
    if (!profile->WriteTogether(
            [&] { return std::all_of(entries.begin(), entries.end(), isKept); })) {
        return false;
    }
    noted = std::move(entries);
    return true;
}
