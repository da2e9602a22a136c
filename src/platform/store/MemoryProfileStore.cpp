#include "platform/store/MemoryProfileStore.h"

bool MemoryProfileStore::WriteProfileString(const CString& section, const CString& entry,
                                            const CString& value)
{
    entries.Set(section, entry, value);
    return true;
}

std::optional<CString> MemoryProfileStore::Read(const CString& section, const CString& entry) const
{
    const CString* value = entries.Find(section, entry);
    return value != nullptr ? std::optional(*value) : std::nullopt;
}
