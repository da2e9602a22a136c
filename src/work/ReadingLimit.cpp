#include "work/ReadingLimit.h"

#include "platform/host/HostServices.h"
#include "platform/store/StoredValues.h"

#include <algorithm>

namespace
{
constexpr const char* section = "Reading";
constexpr const char* limitEntry = "Limit";
constexpr const char* memoryEntry = "PictureMemory";

int LoadWithin(const char* entry, int usual, int smallest, int largest)
{
    const ProfileStore* profile = GetHostServices().profile;
    if (profile != nullptr) ReadStored(*profile, section, entry, usual);
    return std::clamp(usual, smallest, largest);
}

bool SaveAs(const char* entry, int value)
{
    return StoredSection().Write(section, {StoredNumber(entry, value)});
}

std::size_t InBytes(int mebibytes)
{
    return static_cast<std::size_t>(mebibytes) << 20;
}
} // namespace

int ReadingLimit::Load()
{
    return LoadWithin(limitEntry, usual, smallest, largest);
}

std::size_t ReadingLimit::LoadInBytes()
{
    return InBytes(Load());
}

bool ReadingLimit::Save(int limit)
{
    return SaveAs(limitEntry, limit);
}

int PictureMemory::Load()
{
    return LoadWithin(memoryEntry, usual, smallest, largest);
}

std::size_t PictureMemory::LoadInBytes()
{
    return InBytes(Load());
}

bool PictureMemory::Save(int limit)
{
    return SaveAs(memoryEntry, limit);
}
