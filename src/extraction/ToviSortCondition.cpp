#include "extraction/ToviSortCondition.h"

#include "platform/HostServices.h"
#include "settings/StoredValues.h"

namespace
{
constexpr const char* undefined = "_未定義_";
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
    ReadStored(*profile, SortSection_, ExecSortEntry_, execSort);
    ReadStored(*profile, SortSection_, AscendingEntry_, ascending);
    const CString key = profile->GetProfileString(SortSection_, KeyItemEntry_, undefined);
    if (key != undefined && !key.empty()) keyItem = key;
    return true;
}

bool ToviSortCondition::Save() const
{
    ProfileStore* profile = GetHostServices().profile;
    return profile != nullptr && WriteStored(*profile, SortSection_, ExecSortEntry_, execSort) &&
           WriteStored(*profile, SortSection_, AscendingEntry_, ascending) &&
           profile->WriteProfileString(SortSection_, KeyItemEntry_, keyItem);
}
