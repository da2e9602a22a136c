#include "settings/StoredValues.h"

namespace
{
constexpr int storedBias = 100;
constexpr int neverSaved = -1;
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

bool WriteStored(ProfileStore& profile, const char* section, const char* entry, int value)
{
    return profile.WriteProfileInt(section, entry, value + storedBias);
}
