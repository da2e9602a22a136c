#pragma once

#include "platform/ProfileStore.h"

#include <type_traits>

/// Integers and flags in the form that the settings have in the profile store: 100 higher than what
/// they say, so that anything below 100 was never saved.

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

/// Saves an integer or a flag. False when it could not be kept.
bool WriteStored(ProfileStore& profile, const char* section, const char* entry, int value);
