#include "work/WorkFolder.h"

#include "platform/files/DeliveredFolder.h"
#include "platform/text/Cp932.h"
#include "work/Environment.h"
#include "work/ProductList.h"

#include <algorithm>
#include <filesystem>
#include <optional>

namespace
{
constexpr const char* homeKey = "SOFTWARE\\Orvane Systems\\QVHomeKey";
constexpr const char* productsKey = "Software\\Orvane Systems\\";
/// The registry value that names the location, and the folder that is added to it.
constexpr const char* scratchName = "QVScratch";
constexpr const char* suiteName = "QV-SUITE";
constexpr int shortestLocation = 2;

struct Macro
{
    std::string_view name;
    CString UserFolders::*folder;
};

constexpr Macro macros[] = {
    {"$(WinDrive)", &UserFolders::windowsDrive},
    {"$(PersonalDocument)", &UserFolders::documents},
    {"$(PersonalDeskTop)", &UserFolders::desktop},
    {"$(PersonalTemp)", &UserFolders::temporary},
};

bool IsFolder(const CString& path)
{
    std::error_code error;
    return path.starts_with('/') && std::filesystem::is_directory(path, error);
}

/// A relative text is no place: it would be another one for each current folder.
bool IsUsable(const CString& location)
{
    if (IsInDelivery(location)) return false;
    std::error_code error;
    return IsFolder(location) ||
           (location.starts_with('/') && std::filesystem::create_directory(location, error));
}

std::optional<CString> ReadText(Registry& registry, RegistryHive hive, const CString& key,
                                const CString& name)
{
    const auto value = registry.ReadValue(hive, key, name);
    if (!value || value->type == RegistryType::Other) return std::nullopt;
    return value->text;
}

/// The path that \p text of the registry names. Separators are turned first, so that a folder put
/// in for a macro stays as it is.
CString Expanded(const CString& text, const UserFolders& folders)
{
    CString path = ReplaceAll(text, "\\", "/");
    for (const Macro& macro : macros) path = ReplaceAll(path, macro.name, folders.*macro.folder);
    if (path.ends_with('/')) path.pop_back();
    return path;
}

/// The location that a hive names; nothing when that is no text, or too short for one.
std::optional<CString> ReadLocation(Environment& environment, RegistryHive hive)
{
    const auto text = ReadText(environment.registry, hive, homeKey, scratchName);
    if (!text) return std::nullopt;
    const CString location = Expanded(*text, environment.folders);
    if (Cp932::ByteLength(location) < shortestLocation) return std::nullopt;
    return location;
}

/// The location that the machine's hive names, which is the user's own from now on: for this run if
/// the user's registry can't be written.
std::optional<CString> AdoptMachineLocation(Environment& environment)
{
    if (!ReadLocation(environment, RegistryHive::LocalMachine)) return std::nullopt;
    Registry& registry = environment.registry;
    const auto text = ReadText(registry, RegistryHive::LocalMachine, homeKey, scratchName);
    registry.WriteValue(RegistryHive::CurrentUser, homeKey, scratchName,
                        {RegistryType::ExpandableText, text.value_or("")});
    return ReadLocation(environment, RegistryHive::CurrentUser);
}

/// The location that the registry names. Nothing when it names none, or the user's hive one that
/// can't be used. One of the machine's that can't be used gives an empty text: the folder is then
/// one in the root, and no other place is looked for.
std::optional<CString> RegistryLocation(Environment& environment)
{
    if (const auto location = ReadLocation(environment, RegistryHive::CurrentUser)) {
        return IsUsable(*location) ? location : std::nullopt;
    }
    const auto location = AdoptMachineLocation(environment);
    return !location || IsUsable(*location) ? location : CString();
}

CString WithoutTrailingSeparators(CString path)
{
    path.resize(path.find_last_not_of('/') + 1);
    return path;
}

CString WithoutLevels(CString path, int levels)
{
    for (; levels > 0; --levels) {
        path.resize(path.rfind('/') + 1);
        path = WithoutTrailingSeparators(path);
    }
    return path;
}

/// The program folder of the newest version of a product in one hive.
std::optional<CString> ProgramFolder(Registry& registry, RegistryHive hive, const CString& product)
{
    const CString key = productsKey + product;
    CStringArray versions = registry.ListSubKeys(hive, key);
    std::sort(versions.begin(), versions.end(), [](const CString& left, const CString& right) {
        return Cp932::SortKey(left) > Cp932::SortKey(right);
    });
    for (const CString& version : versions) {
        const CString pathKey = Format("%s\\%s\\Common\\Path", key.c_str(), version.c_str());
        const auto text = ReadText(registry, hive, pathKey, "Program");
        const CString folder = WithoutTrailingSeparators(ReplaceAll(text.value_or(""), "\\", "/"));
        if (IsFolder(folder)) return folder;
    }
    return std::nullopt;
}

/// The folder that the installed products share.
std::optional<CString> ProductLocation(Registry& registry)
{
    for (const Product& product : ProductList()) {
        for (const RegistryHive hive : {RegistryHive::LocalMachine, RegistryHive::CurrentUser}) {
            const auto folder = ProgramFolder(registry, hive, product.key);
            if (folder) return WithoutLevels(*folder, product.levels);
        }
    }
    return std::nullopt;
}
} // namespace

bool GetWorkFolder(Environment& environment, CString& path)
{
    std::optional<CString> location = RegistryLocation(environment);
    if (!location) location = ProductLocation(environment.registry);
    // Not among the user's documents: nobody would know what it is there.
    if (!location && !environment.folders.cache.empty()) location = environment.folders.cache;
    if (!location) return false;
    if (!location->ends_with('/')) *location += '/';
    path = *location + scratchName;
    return true;
}

bool GetWorkFolder(CString& path)
{
    return GetWorkFolder(GetEnvironment(), path);
}

CString SuiteFolder()
{
    CString path;
    return GetWorkFolder(path) ? path + '/' + suiteName + '/' : CString();
}

unsigned int GetSuiteFolder(unsigned int size, char* buffer)
{
    const CString folder = SuiteFolder();
    if (folder.empty()) return 0;
    const auto length = static_cast<unsigned int>(folder.size());
    if (size < length + 1) return length + 1;
    if (buffer == nullptr) return 0;
    std::copy_n(folder.c_str(), folder.size() + 1, buffer);
    return length;
}
