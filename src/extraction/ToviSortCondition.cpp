#include "extraction/ToviSortCondition.h"

#include "platform/host/HostServices.h"

namespace
{
constexpr const char* undefined = "_未定義_";
} // namespace

ToviSortCondition::ToviSortCondition(const ToviSortCondition& other)
    : keyItem(other.keyItem), execSort(other.execSort), ascending(other.ascending),
      stored(other.stored)
{}

ToviSortCondition& ToviSortCondition::operator=(const ToviSortCondition& other)
{
    keyItem = other.keyItem;
    ascending = other.ascending;
    ExecSort(other.execSort);
    stored = other.stored;
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
    stored.Note(Entries());
    return true;
}

bool ToviSortCondition::Save()
{
    return stored.Write(SortSection_, Entries());
}

StoredSection::Entries ToviSortCondition::Entries() const
{
    return {StoredNumber(ExecSortEntry_, execSort),
            StoredNumber(AscendingEntry_, ascending),
            {KeyItemEntry_, keyItem}};
}
