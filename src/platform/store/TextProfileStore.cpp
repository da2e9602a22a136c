#include "platform/store/TextProfileStore.h"

#include <charconv>

int TextProfileStore::GetProfileInt(const CString& section, const CString& entry, int def) const
{
    const CString text = Read(section, entry).value_or("");
    const char* const end = text.data() + text.size();
    int value = 0;
    const auto [rest, error] = std::from_chars(text.data(), end, value);
    return error == std::errc() && rest == end ? value : def;
}

bool TextProfileStore::WriteProfileInt(const CString& section, const CString& entry, int value)
{
    return WriteProfileString(section, entry, std::to_string(value));
}

CString TextProfileStore::GetProfileString(const CString& section, const CString& entry,
                                           const CString& def) const
{
    return Read(section, entry).value_or(def);
}
