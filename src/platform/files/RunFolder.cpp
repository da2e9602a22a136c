#include "platform/files/RunFolder.h"

#include "platform/files/FileDescriptor.h"
#include "platform/files/FolderLock.h"
#include "platform/files/MibFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <sstream>

namespace
{
constexpr std::size_t charactersThatMkdtempFills = 6;
constexpr std::size_t largestSocketList = std::size_t{1} << 20;

bool TakeLock(FileDescriptor& folder, const CString& path)
{
    folder.Reset(open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    return folder.IsOpen() && flock(folder.Get(), LOCK_EX | LOCK_NB) == 0;
}

/// A program that is killed can't remove them itself.
void RemoveSocketsOf(const std::filesystem::path& folder)
{
    std::istringstream list(
        MibReadFile((folder / socketListName).string(), largestSocketList).value_or(""));
    struct stat facts;
    for (std::string path; std::getline(list, path);) {
        if (lstat(path.c_str(), &facts) == 0 && S_ISSOCK(facts.st_mode)) unlink(path.c_str());
    }
}

void RemoveLeftovers(const CString& shared)
{
    std::error_code ignored;
    for (const auto& entry : std::filesystem::directory_iterator(shared, ignored)) {
        FileDescriptor folder;
        const bool unused = !entry.is_directory(ignored) || entry.is_symlink(ignored) ||
                            TakeLock(folder, entry.path().string());
        if (!unused) continue;
        RemoveSocketsOf(entry.path());
        std::filesystem::remove_all(entry.path(), ignored);
    }
}

CString ParentOf(const CString& folder)
{
    CString parent = folder;
    MibParentDir(parent);
    return parent;
}
} // namespace

RunFolder::RunFolder(const CString& shared)
    : sharedFolder(shared), opened(std::make_unique<FileDescriptor>())
{
    if (shared.empty() || !MibCreateDirectory(ParentOf(shared))) return;
    const FolderLock lock(ParentOf(shared));
    if (!MibCreateDirectory(shared)) return;
    RemoveLeftovers(shared);
    CString made = shared + "/" + CString(charactersThatMkdtempFills, 'X');
    if (mkdtemp(made.data()) == nullptr) return;
    path = made;
    TakeLock(*opened, path);
}

RunFolder::~RunFolder()
{
    if (path.empty()) return;
    std::error_code ignored;
    std::filesystem::remove_all(path, ignored);
    const FolderLock lock(ParentOf(sharedFolder));
    rmdir(sharedFolder.c_str());
}
