#include "extraction/ToviSortCondition.h"

#include "platform/HostServices.h"

namespace
{
constexpr const char* undefined = "_未定義_";
/// Stored integers are that much higher than what they say: anything below it was never saved.
constexpr int storedBias = 100;

void ReadFlag(const ProfileStore& profile, const char* entry, bool& flag)
{
    const int stored = profile.GetProfileInt(ToviSortCondition::SortSection_, entry, -1);
    if (stored >= storedBias) flag = stored != storedBias;
}

bool WriteFlag(ProfileStore& profile, const char* entry, bool flag)
{
    return profile.WriteProfileInt(ToviSortCondition::SortSection_, entry, flag + storedBias);
}
} // namespace

ToviSortCondition::ToviSortCondition(const ToviSortCondition& other)
    : keyItem(other.keyItem), execSort(other.execSort), ascending(other.ascending)
{}

ToviSortCondition& ToviSortCondition::operator=(const ToviSortCondition& other)
{
    keyItem = other.keyItem;
    ascending = other.ascending;
    ExecSort(other.execSort);
    return *this;
}

ToviSortCondition::~ToviSortCondition()
{
    if (loaded) Save();
}

void ToviSortCondition::ExecSort(bool exec)
{
    execSort = exec;
    if (!exec) ascending = true;
}

bool ToviSortCondition::Load()
{
    loaded = true;
    const ProfileStore* profile = GetHostServices().profile;
    if (profile == nullptr) return true;
    ReadFlag(*profile, ExecSortEntry_, execSort);
    ReadFlag(*profile, AscendingEntry_, ascending);
    const CString key = profile->GetProfileString(SortSection_, KeyItemEntry_, undefined);
    if (key != undefined && !key.empty()) keyItem = key;
    return true;
}

bool ToviSortCondition::Save() const
{
    ProfileStore* profile = GetHostServices().profile;
    return profile != nullptr && WriteFlag(*profile, ExecSortEntry_, execSort) &&
           WriteFlag(*profile, AscendingEntry_, ascending) &&
           profile->WriteProfileString(SortSection_, KeyItemEntry_, keyItem);
}
