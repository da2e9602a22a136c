#include "platform/files/MibFile.h"

#include "platform/files/CaseFallback.h"
#include "platform/files/DeliveredFolder.h"
#include "platform/files/RegularFile.h"
#include "platform/host/HostServices.h"

#include <fnmatch.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <memory>

namespace
{
std::optional<struct stat> FactsOf(const CString& path)
{
    struct stat facts;
    if (path.find('\0') != CString::npos) return std::nullopt;
    if (stat(path.c_str(), &facts) == 0) return facts;
    const CString existing = ExistingPath(path);
    if (existing.empty() || stat(existing.c_str(), &facts) != 0) return std::nullopt;
    return facts;
}

/// The absolute path of \p path without symbolic links, or empty.
CString RealPath(const CString& path)
{
    const std::unique_ptr<char, void (*)(void*)> real(realpath(ExistingPath(path).c_str(), nullptr),
                                                      std::free);
    return real ? real.get() : "";
}

/// What \p path is when it lies in \p folder as anybody sees: it begins with that, and no name
/// behind it is a link or leads back up. Nothing when that isn't so, or nothing is there.
std::optional<struct stat> FactsOfPlainFile(const CString& folder, const CString& path)
{
    const bool usable = folder.ends_with('/') && path.starts_with(folder) &&
                        path.size() > folder.size() && !path.ends_with('/') &&
                        path.find('\0') == CString::npos;
    if (!usable) return std::nullopt;
    struct stat facts;
    for (std::size_t at = folder.size(); at < path.size();) {
        const std::size_t end = std::min(path.find('/', at), path.size());
        if (path.compare(at, end - at, "..") == 0) return std::nullopt;
        if (lstat(path.substr(0, end).c_str(), &facts) != 0) return std::nullopt;
        if (S_ISLNK(facts.st_mode)) return std::nullopt;
        at = end + 1;
    }
    return facts;
}
} // namespace

void MibNormalDir(CString& path)
{
    std::replace(path.begin(), path.end(), '\\', '/');
    if (!path.empty() && path.back() != '/') path += '/';
}

CString MibAbsolutePath(const CString& path)
{
    if (path.empty()) return path;
    std::error_code ignored;
    return std::filesystem::absolute(path, ignored).lexically_normal().string();
}

void MibParentDir(CString& path)
{
    MibNormalDir(path);
    if (path.size() < 2) return;
    const std::size_t slash = path.rfind('/', path.size() - 2);
    if (slash != CString::npos) path.resize(slash + 1);
}

bool MibIsFileExist(const CString& path)
{
    const auto facts = FactsOf(path);
    return facts && S_ISREG(facts->st_mode);
}

bool MibIsFolderExist(const CString& path)
{
    const auto facts = FactsOf(path);
    return facts && S_ISDIR(facts->st_mode);
}

bool MibCreateDirectory(const CString& path, IntoDelivery intoDelivery)
{
    if (MibIsFolderExist(path)) return true;
    if (intoDelivery == IntoDelivery::Refused && IsInDelivery(path)) return false;
    for (std::size_t end = 0; end != CString::npos;) {
        end = path.find('/', end + 1);
        const CString folder = path.substr(0, end);
        if (!MibIsFolderExist(folder)) mkdir(folder.c_str(), 0777);
    }
    return MibIsFolderExist(path);
}

CStringArray MibFileFind(const CString& folder, const CString& pattern, bool* isWhole)
{
    CString existing = ExistingPath(folder);
    CStringArray found;
    if (isWhole != nullptr) *isWhole = true;
    if (existing.empty()) return found;
    MibNormalDir(existing);
    const CString folded = FoldCase(pattern);
    for (const CString& name : ListFolder(existing, isWhole)) {
        if (fnmatch(folded.c_str(), FoldCase(name).c_str(), FNM_NOESCAPE) == 0) {
            found.Add(existing + name);
        }
    }
    return found;
}

CString MibGetFileName(const CString& path)
{
    return path.substr(path.rfind('/') + 1);
}

CString MibGetExt(const CString& path)
{
    const CString name = MibGetFileName(path);
    const std::size_t dot = name.rfind('.');
    return dot == CString::npos ? CString() : name.substr(dot);
}

CString MibGetFileTitle(const CString& path)
{
    const CString name = MibGetFileName(path);
    return name.substr(0, name.rfind('.'));
}

CString MibProgramPath()
{
    const CString& program = GetHostServices().programPath;
    return program.substr(0, program.rfind('/') + 1);
}

CString MibBesideProgram(const CString& name)
{
    const CString folder = MibProgramPath();
    return folder.starts_with('/') ? folder + name : CString();
}

bool MibIsInside(const CString& folder, const CString& path)
{
    const CString realFolder = RealPath(folder);
    if (realFolder.empty()) return false;
    return (RealPath(path) + '/').starts_with(realFolder == "/" ? realFolder : realFolder + '/');
}

bool MibIsFileInside(const CString& folder, const CString& path)
{
    // Two looks at the file system, where following every name takes twenty.
    if (const auto facts = FactsOfPlainFile(folder, path)) return S_ISREG(facts->st_mode);
    const CString existing = ExistingPath(path);
    if (existing.empty()) return false;
    if (const auto facts = FactsOfPlainFile(folder, existing)) return S_ISREG(facts->st_mode);
    return MibIsFileExist(existing) && MibIsInside(folder, existing);
}

CString MibTargetPath(const CString& path)
{
    constexpr int mostLinks = 40;
    CString target = path;
    for (int link = 0; link < mostLinks; ++link) {
        if (const CString real = RealPath(target); !real.empty()) return real;
        const bool hasFolder = target.find('/') != CString::npos;
        const CString folder = RealPath(hasFolder ? target.substr(0, target.rfind('/') + 1) : ".");
        if (folder.empty()) return {};
        const std::filesystem::path missing =
            std::filesystem::path(folder) / MibGetFileName(target);
        std::error_code isNoLink;
        const std::filesystem::path next = std::filesystem::read_symlink(missing, isNoLink);
        if (isNoLink) return missing.string();
        target = (folder / next).string();
    }
    return {};
}

CString MibModificationDate(const CString& path)
{
    const auto facts = FactsOf(path);
    if (!facts || !S_ISREG(facts->st_mode)) return {};
    std::tm local;
    if (localtime_r(&facts->st_mtim.tv_sec, &local) == nullptr) return {};
    return Format("%04d-%02d-%02d", local.tm_year + 1900, local.tm_mon + 1, local.tm_mday);
}

bool MibIsReadOnly(const CString& path)
{
    const auto facts = FactsOf(path);
    return facts && (facts->st_mode & S_IWUSR) == 0;
}

bool MibDeleteFile(const CString& path)
{
    unlink(path.c_str());
    return !MibIsFileExist(path);
}

std::size_t MibFileSize(const CString& path)
{
    const auto facts = FactsOf(path);
    return facts && S_ISREG(facts->st_mode) ? static_cast<std::size_t>(facts->st_size) : 0;
}

std::optional<std::string> MibReadFile(const CString& path, std::size_t limit)
{
    std::string bytes;
    bytes.reserve(std::min(MibFileSize(path), limit));
    const bool complete = MibReadBlocks(path, limit, [&bytes](std::string_view block) {
        bytes += block;
        return true;
    });
    if (!complete) return std::nullopt;
    return bytes;
}

bool MibReadBlocks(const CString& path, std::size_t limit,
                   const std::function<bool(std::string_view)>& take)
{
    const RegularFile file(path);
    if (!file.IsOpen() || file.Size() > limit) return false;
    std::array<char, 1 << 16> block;
    std::size_t total = 0;
    for (;;) {
        const ssize_t got = file.Read(block.data(), block.size());
        if (got <= 0) return got == 0;
        total += static_cast<std::size_t>(got);
        if (total > limit || !take({block.data(), static_cast<std::size_t>(got)})) return false;
    }
}

bool MibHaveSameBytes(const CString& left, const CString& right, std::size_t limit)
{
    const RegularFile other(right);
    std::array<char, 1 << 16> bytes;
    return other.IsOpen() && MibFileSize(left) == other.Size() &&
           MibReadBlocks(left, limit, [&](std::string_view block) {
               const ssize_t got = other.Read(bytes.data(), block.size());
               return got >= 0 &&
                      block == std::string_view(bytes.data(), static_cast<std::size_t>(got));
           });
}
