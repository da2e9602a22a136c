#include "platform/store/Registry.h"

#include "platform/files/UserFolders.h"

#include <algorithm>
#include <utility>

namespace
{
constexpr const char* fileName = "registry.ini";
constexpr const char* machineFolder = "/etc/tovi/";
constexpr char levelMark = '\\';

struct TypeName
{
    RegistryType type;
    std::string_view prefix;
};

constexpr TypeName typeNames[] = {
    {RegistryType::Text, "sz:"},
    {RegistryType::ExpandableText, "expand_sz:"},
    {RegistryType::Other, ""},
};

/// The name of the level of \p section below \p key; empty when it is no key below.
CString LevelBelow(const CString& key, const CString& section)
{
    std::size_t length = CString::npos;
    const auto levels = std::count(key.begin(), key.end(), levelMark) + 1;
    for (auto level = levels; level > 0; --level) {
        length = section.find(levelMark, length + 1);
        if (length == CString::npos) return {};
    }
    if (!EqualNoCase(std::string_view(section).substr(0, length), key)) return {};
    const std::size_t start = length + 1;
    return section.substr(start, section.find(levelMark, start) - start);
}
} // namespace

Registry::Registry(CString userPath, CString machinePath)
    : user(std::move(userPath)), machine(std::move(machinePath))
{}

Registry Registry::OfThisMachine()
{
    return {ConfigurationFile(fileName), CString(machineFolder) + fileName};
}

std::optional<RegistryValue> Registry::ReadValue(RegistryHive hive, const CString& key,
                                                 const CString& name)
{
    SharedSectionFile& file = FileOf(hive);
    file.Refresh();
    const CString* kept = file.Find(key, name);
    if (kept == nullptr) return std::nullopt;
    const auto* const found =
        std::find_if(std::begin(typeNames), std::end(typeNames),
                     [kept](const TypeName& known) { return kept->starts_with(known.prefix); });
    return RegistryValue{found->type, kept->substr(found->prefix.size())};
}

bool Registry::WriteValue(RegistryHive hive, const CString& key, const CString& name,
                          const RegistryValue& value)
{
    const auto* const type =
        std::find_if(std::begin(typeNames), std::end(typeNames),
                     [&value](const TypeName& known) { return known.type == value.type; });
    return FileOf(hive).Write(key, name, CString(type->prefix) + value.text);
}

CStringArray Registry::ListSubKeys(RegistryHive hive, const CString& key)
{
    SharedSectionFile& file = FileOf(hive);
    file.Refresh();
    CStringArray subKeys;
    for (const CString& section : file.SectionNames()) {
        const CString level = LevelBelow(key, section);
        const bool known =
            std::any_of(subKeys.begin(), subKeys.end(),
                        [&level](const CString& other) { return EqualNoCase(other, level); });
        if (!level.empty() && !known) subKeys.Add(level);
    }
    return subKeys;
}

SharedSectionFile& Registry::FileOf(RegistryHive hive)
{
    return hive == RegistryHive::CurrentUser ? user : machine;
}
