#include "delivery/DeliveryArchive.h"

#include "platform/files/Archive.h"
#include "platform/files/DiskSpace.h"
#include "platform/files/MibFile.h"
#include "platform/files/RunFolder.h"
#include "platform/files/UserFolders.h"
#include "platform/host/HostServices.h"

#include <algorithm>
#include <deque>

namespace
{
/// The folder of \p path without a trailing separator; empty for the root.
CString FolderOf(const CString& path)
{
    const std::size_t slash = path.rfind('/');
    return slash == CString::npos ? CString() : path.substr(0, slash);
}

bool IsIn(const CString& folder, const CString& path)
{
    return folder.empty() || path.starts_with(folder + "/");
}

/// Where the deliveries stand in an archive.
struct Places
{
    /// The folders with PHOTO.XML, and those above them.
    std::vector<CString> photo;
    std::vector<CString> above;

    bool IsWanted(const CString& path) const
    {
        const CString folder = FolderOf(path);
        const auto holds = [&path](const CString& each) { return IsIn(each, path); };
        return std::find(above.begin(), above.end(), folder) != above.end() ||
               std::any_of(photo.begin(), photo.end(), holds);
    }

    /// The folder that all of them stand in.
    CString Common() const
    {
        CString common = above.front();
        const auto holdsAll = [this](const CString& folder) {
            return std::all_of(above.begin(), above.end(), [&folder](const CString& each) {
                return each == folder || IsIn(folder, each);
            });
        };
        while (!holdsAll(common)) common = FolderOf(common);
        return common;
    }
};

Places PlacesIn(const std::vector<ArchiveEntry>& entries)
{
    Places places;
    for (const ArchiveEntry& entry : entries) {
        if (!EqualNoCase(MibGetFileName(entry.path), "PHOTO.XML")) continue;
        places.photo.push_back(FolderOf(entry.path));
        places.above.push_back(FolderOf(places.photo.back()));
    }
    return places;
}

UnpackedDelivery Refused(const CString& path, const CString& why)
{
    return {"", path + " を開けません。" + why +
                    "。展開したフォルダを開くか、納品データの作成元に確かめてください。"};
}

/// A folder for what is unpacked, which stays until the program ends; empty when none can be made.
/// The folder for temporary files is often in memory.
CString NewArea()
{
    static std::deque<RunFolder> areas;
    const UserFolders folders = CurrentUserFolders();
    const CString shared =
        folders.cache.empty() ? PrivateTemporaryFolder(folders.temporary) : folders.cache;
    if (shared.empty()) return {};
    return areas.emplace_back(shared + "/unpacked").Path();
}

std::uint64_t WantedBytes(const std::vector<ArchiveEntry>& entries, const Places& places)
{
    std::uint64_t bytes = 0;
    for (const ArchiveEntry& entry : entries) {
        if (places.IsWanted(entry.path)) bytes += entry.bytes;
    }
    return bytes;
}

constexpr int bytesOfMegabyte = 20;
} // namespace

UnpackedDelivery UnpackDelivery(const CString& path)
{
    const ArchiveOutcome listed = ListArchive(path);
    if (!listed.problem.empty()) return Refused(path, listed.problem);
    const Places places = PlacesIn(listed.entries);
    if (places.photo.empty()) return Refused(path, "中に PHOTO.XML がありません");
    const CString area = NewArea();
    if (area.empty()) return Refused(path, "展開するフォルダを作れません");
    const std::uint64_t wanted = WantedBytes(listed.entries, places);
    if (FreeSpace(area) < wanted) {
        return Refused(path,
                       Format("%s に %lluMB の空きが要ります", area.c_str(),
                              static_cast<unsigned long long>(wanted >> bytesOfMegabyte) + 1));
    }
    UserInterface& user = *GetHostServices().userInterface;
    std::uint64_t told = 0;
    const ArchiveOutcome unpacked = UnpackArchive(
        path, area, [&places](const CString& name) { return places.IsWanted(name); },
        [&](std::uint64_t bytes) {
            if (const std::uint64_t megabytes = bytes >> bytesOfMegabyte; megabytes > told) {
                told = megabytes;
                user.ShowProgress(
                    Format("展開　%lluMB / %lluMB", static_cast<unsigned long long>(megabytes),
                           static_cast<unsigned long long>(wanted >> bytesOfMegabyte)));
            }
            return true;
        });
    user.ShowProgress("");
    if (!unpacked.problem.empty()) return Refused(path, unpacked.problem);
    const CString common = places.Common();
    return {common.empty() ? area : area + "/" + common, ""};
}
