#include "platform/files/DeliveredFolder.h"

#include "platform/files/CaseFallback.h"
#include "platform/files/MibFile.h"

#include <filesystem>

namespace
{
constexpr int longestChainOfLinks = 40;

/// \p path, or what it leads to where it is a link to something that isn't there yet.
std::filesystem::path TargetOf(std::filesystem::path path)
{
    std::error_code error;
    for (int links = 0; links < longestChainOfLinks; ++links) {
        const std::filesystem::path target = std::filesystem::read_symlink(path, error);
        if (error) break;
        path = path.parent_path() / target;
    }
    return path;
}

/// The folder of \p path that exists, links resolved, with a separator at its end: itself, or the
/// next one above.
CString ExistingFolder(const CString& path)
{
    std::error_code ignored;
    std::filesystem::path at = TargetOf(MibAbsolutePath(path));
    while (at.has_relative_path() && !MibIsFolderExist(at.string())) at = at.parent_path();
    CString folder = std::filesystem::canonical(ExistingPath(at.string()), ignored).string();
    if (folder.empty()) folder = at.string();
    MibNormalDir(folder);
    return folder;
}

bool HoldsPhotoXml(const CString& folder)
{
    return MibIsFileExist(folder + "PHOTO.XML");
}

bool HoldsPictures(const CString& folder)
{
    return MibIsFolderExist(folder + "PIC") || MibIsFolderExist(folder + "DRA");
}

bool HoldsIndexOfPhotos(const CString& folder)
{
    return HoldsPhotoXml(folder + "PHOTO/") && !MibFileFind(folder, "INDEX_*.XML").IsEmpty();
}
} // namespace

bool IsInDelivery(const CString& path)
{
    if (path.empty()) return false;
    const CString start = ExistingFolder(path);
    if (HoldsPhotoXml(start)) return true;
    for (CString folder = start;;) {
        if (HoldsIndexOfPhotos(folder) || (HoldsPhotoXml(folder) && HoldsPictures(folder)))
            return true;
        const std::size_t length = folder.size();
        MibParentDir(folder);
        if (folder.size() >= length) return false;
    }
}
