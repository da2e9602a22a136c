#include "windows/list/ListColumns.h"

#include "extraction/ToviSortCondition.h"
#include "platform/host/HostServices.h"

namespace
{
constexpr const char* section = "PhotoList";
/// As everywhere in the profile: what is below was never saved.
constexpr int bias = 100;

std::optional<int> Read(const CString& entry)
{
    const ProfileStore* profile = GetHostServices().profile;
    const int stored = profile != nullptr ? profile->GetProfileInt(section, entry, -1) : -1;
    return stored < bias ? std::nullopt : std::optional(stored - bias);
}

void Write(const CString& entry, int value)
{
    if (ProfileStore* profile = GetHostServices().profile) {
        profile->WriteProfileInt(section, entry, value + bias);
    }
}
} // namespace

std::optional<int> ListColumnMemory::Width(const CString& title)
{
    return Read("Width " + title);
}

void ListColumnMemory::SetWidth(const CString& title, int width)
{
    Write("Width " + title, width);
}

bool ListColumnMemory::IsShown(const CString& title)
{
    return Read("Shown " + title).value_or(1) != 0;
}

void ListColumnMemory::SetShown(const CString& title, bool shown)
{
    Write("Shown " + title, shown ? 1 : 0);
}

ToviSortCondition OrderAfterClick(const ToviSortCondition& now, const CString& key)
{
    ToviSortCondition next = now;
    const bool isSame = now.IsExecSort() && now.GetKeyItem() == key;
    next.ExecSort(!isSame || now.IsAscending());
    next.SetKeyItem(key.c_str());
    next.Ascending(!isSame || !now.IsAscending());
    return next;
}
