#include "platform/files/UserFolders.h"

#include "platform/files/MibFile.h"

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <initializer_list>

namespace
{
constexpr std::size_t longestDesktopSettings = std::size_t{64} << 10;

/// \p path without trailing separators if it is a folder's full path, else empty.
CString FolderOrNothing(CString path)
{
    std::error_code error;
    if (!path.starts_with('/') || !std::filesystem::is_directory(path, error)) return {};
    path.resize(path.find_last_not_of('/') + 1);
    return path;
}

CString FirstFolder(std::initializer_list<CString> paths)
{
    for (const CString& path : paths) {
        if (CString folder = FolderOrNothing(path); !folder.empty()) return folder;
    }
    return {};
}

CString Variable(const char* name)
{
    const char* value = std::getenv(name);
    return value != nullptr ? value : "";
}

CString HomeFolder()
{
    CString home = FolderOrNothing(Variable("HOME"));
    if (!home.empty()) return home;
    const passwd* user = getpwuid(geteuid());
    return user != nullptr ? FolderOrNothing(user->pw_dir) : CString();
}

/// The folder that \p variable names, or else \p usual in the home folder; it need not exist. A
/// relative setting is void.
CString FolderFor(const char* variable, const char* usual)
{
    CString named = Variable(variable);
    if (named.starts_with('/')) return named;
    const CString home = HomeFolder();
    return home.empty() ? home : home + usual;
}

CString ConfigurationFolder()
{
    return FolderFor("XDG_CONFIG_HOME", "/.config");
}

/// The path that a line of the desktop's settings gives as "/..." or "$HOME...", quoted, with
/// backslashes in front of special characters.
CString SettingsPath(std::string_view quoted, const CString& home)
{
    constexpr std::string_view homeMark = "$HOME";
    if (quoted.size() < 2 || quoted.front() != '"' || quoted.back() != '"') return {};
    quoted = quoted.substr(1, quoted.size() - 2);
    CString path;
    if (quoted.starts_with(homeMark)) {
        path = home;
        quoted.remove_prefix(homeMark.size());
    }
    while (!quoted.empty()) {
        if (quoted.front() == '\\' && quoted.size() > 1) quoted.remove_prefix(1);
        path += quoted.front();
        quoted.remove_prefix(1);
    }
    return path;
}

/// The folder that the desktop's settings give for \p name, or empty.
CString DesktopSetting(std::string_view name, const CString& home)
{
    const CString settings =
        MibReadFile(ConfigurationFolder() + "/user-dirs.dirs", longestDesktopSettings).value_or("");
    CString path;
    std::size_t end = 0;
    for (std::size_t start = 0; start < settings.size(); start = end + 1) {
        end = std::min(settings.find('\n', start), settings.size());
        const CString line = Trimmed(std::string_view(settings).substr(start, end - start));
        const std::size_t equals = line.find('=');
        if (line.substr(0, equals) != name || equals == CString::npos) continue;
        path = SettingsPath(std::string_view(line).substr(equals + 1), home);
    }
    return path;
}

CString TemporaryFolder()
{
    std::error_code error;
    const CString folder = FirstFolder({Variable("TMPDIR"), "/tmp"});
    return std::filesystem::canonical(folder, error).string();
}
} // namespace

UserFolders CurrentUserFolders()
{
    const CString home = HomeFolder();
    UserFolders folders;
    folders.documents =
        FirstFolder({DesktopSetting("XDG_DOCUMENTS_DIR", home), home + "/Documents", home});
    folders.desktop =
        FirstFolder({DesktopSetting("XDG_DESKTOP_DIR", home), home + "/Desktop", home});
    folders.temporary = TemporaryFolder();
    if (const CString cache = FolderFor("XDG_CACHE_HOME", "/.cache"); !cache.empty()) {
        folders.cache = cache + "/tovi";
    }
    return folders;
}

CString PrivateTemporaryFolder(const CString& temporary)
{
    if (temporary.empty()) return {};
    const CString folder = temporary + Format("/tovi-%u", geteuid());
    mkdir(folder.c_str(), 0700);
    struct stat facts;
    const bool isOurs = lstat(folder.c_str(), &facts) == 0 && S_ISDIR(facts.st_mode) &&
                        facts.st_uid == geteuid() && (facts.st_mode & 0077) == 0;
    return isOurs ? folder : CString();
}

CString ConfigurationFile(std::string_view name)
{
    const CString folder = ConfigurationFolder();
    return folder.empty() ? folder : folder + "/tovi/" + CString(name);
}

CString StateFolder(std::string_view name)
{
    const CString folder = FolderFor("XDG_STATE_HOME", "/.local/state");
    return folder.empty() ? folder : folder + "/tovi/" + CString(name);
}

CString DataFolder(std::string_view name)
{
    const CString folder = FolderFor("XDG_DATA_HOME", "/.local/share");
    return folder.empty() ? folder : folder + "/tovi/" + CString(name);
}

bool MakePrivateFolder(const CString& path)
{
    if (MibIsFolderExist(path)) return true;
    return !path.empty() && MibCreateDirectory(path) && chmod(path.c_str(), 0700) == 0;
}
