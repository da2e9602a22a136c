#include "work/ReadingLimit.h"

#include "platform/host/HostServices.h"
#include "platform/store/StoredValues.h"

#include <algorithm>

namespace
{
constexpr const char* section = "Reading";
constexpr const char* entry = "Limit";
} // namespace

int ReadingLimit::Load()
{
    int limit = usual;
    const ProfileStore* profile = GetHostServices().profile;
    if (profile != nullptr) ReadStored(*profile, section, entry, limit);
    return std::clamp(limit, smallest, largest);
}

std::size_t ReadingLimit::LoadInBytes()
{
    return static_cast<std::size_t>(Load()) << 20;
}

bool ReadingLimit::Save(int limit)
{
    return StoredSection().Write(section, {StoredNumber(entry, limit)});
}
