#include "platform/files/MibCopy.h"

#include "platform/files/CaseFallback.h"
#include "platform/files/FileReplacement.h"
#include "platform/files/MibFile.h"
#include "platform/files/RegularFile.h"
#include "platform/files/WriteTarget.h"

#include <unistd.h>

#include <array>
#include <cerrno>
#include <filesystem>
#include <unordered_map>
#include <utility>
#include <vector>

namespace fs = std::filesystem;

namespace
{
constexpr mode_t permissionBits = 0777;
/// Until the copy is whole nobody else need see it.
constexpr mode_t whileCopying = 0600;
constexpr std::size_t largestStep = std::size_t{1} << 30;

CopyFailure CopyInBlocks(const RegularFile& source, FileReplacement& copy)
{
    std::array<char, 1 << 16> block;
    for (;;) {
        const ssize_t got = source.Read(block.data(), block.size());
        if (got < 0) return CopyFailure::NoSource;
        if (got == 0) return CopyFailure::None;
        const int error = copy.Append({block.data(), static_cast<std::size_t>(got)});
        if (error != 0) return FailureOf(error);
    }
}

/// Lets the system copy, which shares or moves the blocks by itself where it can; what it has left
/// over, for lack of room or because these two file systems don't go together, goes block by block.
CopyFailure CopyBytes(const RegularFile& source, FileReplacement& copy)
{
    ssize_t copied = 0;
    do {
        copied = copy_file_range(source.Descriptor(), nullptr, copy.Descriptor(), nullptr,
                                 largestStep, 0);
    } while (copied > 0);
    return CopyInBlocks(source, copy);
}

bool IsSameFile(const struct stat& facts, const WriteTarget& target)
{
    return target.exists && target.facts.st_dev == facts.st_dev &&
           target.facts.st_ino == facts.st_ino;
}

/// The other half of the rule; a copy whose bytes are there counts in any case.
void TakeOverStatus(int copy, const struct stat& facts)
{
    [[maybe_unused]] const int permitted = fchmod(copy, facts.st_mode & permissionBits);
    const timespec times[] = {facts.st_atim, facts.st_mtim};
    futimens(copy, times);
}

/// The names in a folder by their folded form.
using Names = std::unordered_map<CString, CString>;

Names NamesIn(const CString& folder)
{
    Names names;
    for (const CString& name : ListFolder(folder)) names.try_emplace(FoldCase(name), name);
    return names;
}

struct Entries
{
    std::vector<CString> files;
    std::vector<CString> folders;
};

/// What is right in \p folder. False when it can't be read to its end.
bool ReadFolder(const CString& folder, Entries& entries)
{
    std::error_code error;
    for (fs::directory_iterator at(folder, error), end; !error && at != end; at.increment(error)) {
        const fs::file_type type = at->symlink_status(error).type();
        if (error) return false;
        const CString name = at->path().filename().string();
        if (type == fs::file_type::regular) entries.files.push_back(name);
        if (type == fs::file_type::directory) entries.folders.push_back(name);
    }
    return !error;
}

bool CopyFolder(const CString& from, const CString& to, const std::function<bool()>& goOn)
{
    Entries entries;
    if (!ReadFolder(from, entries) || !MibCreateDirectory(to, IntoDelivery::Allowed)) return false;
    const Names known = NamesIn(to);
    const auto placeOf = [&](const CString& name) {
        const auto found = known.find(FoldCase(name));
        return to + '/' + (found == known.end() ? name : found->second);
    };
    for (const CString& name : entries.files) {
        if (goOn && !goOn()) return false;
        const CopyFailure failure =
            MibCopyFileEx(from + '/' + name, placeOf(name), IntoDelivery::Allowed);
        if (failure != CopyFailure::None) return false;
    }
    for (const CString& name : entries.folders) {
        if (!CopyFolder(from + '/' + name, placeOf(name), goOn)) return false;
    }
    return true;
}

int CountIn(const CString& folder)
{
    Entries entries;
    ReadFolder(folder, entries);
    int count = static_cast<int>(entries.files.size());
    for (const CString& name : entries.folders) count += CountIn(folder + '/' + name);
    return count;
}

/// As MibIsInside, also for a path that isn't there yet.
bool LiesInside(const CString& folder, const CString& path)
{
    std::error_code error;
    const CString real = fs::weakly_canonical(path, error).string() + '/';
    return real.starts_with(fs::weakly_canonical(folder, error).string() + '/');
}

CString WithoutTrailingSeparator(CString folder)
{
    MibNormalDir(folder);
    if (!folder.empty()) folder.pop_back();
    return folder;
}
} // namespace

CopyFailure MibCopyFileEx(const CString& from, const CString& to, IntoDelivery intoDelivery)
{
    const RegularFile source(from);
    if (!source.IsOpen()) return CopyFailure::NoSource;
    WriteTarget target;
    CopyFailure failure = FindWriteTarget(to, intoDelivery, target);
    if (failure != CopyFailure::None) return failure;
    if (IsSameFile(source.Facts(), target)) return CopyFailure::Other;
    FileReplacement copy(target.path);
    if (const int error = copy.Open(whileCopying)) return FailureOf(error);
    failure = CopyBytes(source, copy);
    if (failure != CopyFailure::None) return failure;
    TakeOverStatus(copy.Descriptor(), source.Facts());
    return FailureOf(copy.Place());
}

bool MibFileDirCopy(const CString& from, const CString& to, bool overwrite,
                    IntoDelivery intoDelivery)
{
    CString target = to;
    MibNormalDir(target);
    target += MibGetFileName(from);
    if (!overwrite && MibIsFileExist(target)) return false;
    return MibCopyFileEx(from, target, intoDelivery) == CopyFailure::None;
}

bool MibListFiles(const CString& folder, CStringArray& files)
{
    files.RemoveAll();
    Entries entries;
    const CString existing = ExistingPath(folder);
    std::error_code error;
    if (!fs::is_directory(existing, error)) return true;
    const bool complete = ReadFolder(existing, entries);
    for (const CString& name : entries.files) {
        files.Add(WithoutTrailingSeparator(existing) + '/' + name);
    }
    return complete;
}

bool MibRemoveDirectory(const CString& path, bool contents)
{
    if (path.empty()) return false;
    std::error_code error;
    if (contents) {
        fs::remove_all(path, error);
    } else {
        rmdir(path.c_str());
    }
    return !fs::exists(fs::symlink_status(path, error));
}

MibDeepCopyDirectory::MibDeepCopyDirectory(CString from, CString to)
    : source(std::move(from)), target(std::move(to))
{}

int MibDeepCopyDirectory::CountFiles() const
{
    return CountIn(WithoutTrailingSeparator(ExistingPath(source)));
}

bool MibDeepCopyDirectory::Execute(const std::function<bool()>& goOn)
{
    const CString from = WithoutTrailingSeparator(ExistingPath(source));
    const CString to = WithoutTrailingSeparator(target);
    if (from.empty() || to.empty() || LiesInside(from, to)) return false;
    return CopyFolder(from, to, goOn);
}
