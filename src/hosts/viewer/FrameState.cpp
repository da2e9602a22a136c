#include "hosts/viewer/FrameState.h"

#include "platform/files/MibFile.h"
#include "platform/files/UserFolders.h"
#include "platform/host/HostServices.h"

namespace
{
constexpr const char* section = "Viewer";
constexpr const char* recentSection = "RecentDeliveries";
constexpr int recentCount = 8;
constexpr const char* openEntry = "OpenDelivery";
constexpr const char* opensLastEntry = "OpensLast";

CString RecentEntry(int place)
{
    return "Path" + std::to_string(place + 1);
}

CString Read(const char* from, const CString& entry)
{
    const ProfileStore* profile = GetHostServices().profile;
    return profile != nullptr ? profile->GetProfileString(from, entry, "") : "";
}

void Write(const char* to, const CString& entry, const CString& value)
{
    if (ProfileStore* profile = GetHostServices().profile) {
        profile->WriteProfileString(to, entry, value);
    }
}
} // namespace

QByteArray FrameState::ReadBytes(const char* entry)
{
    return QByteArray::fromBase64(QByteArray::fromStdString(Read(section, entry)));
}

void FrameState::WriteBytes(const char* entry, const QByteArray& bytes)
{
    if (bytes != ReadBytes(entry)) Write(section, entry, bytes.toBase64().toStdString());
}

CString FrameState::FolderToStartIn(const char* entry)
{
    const CString last = Read(section, entry);
    return MibIsFolderExist(last) ? last : CurrentUserFolders().documents;
}

void FrameState::SetLastFolder(const char* entry, const CString& folder)
{
    Write(section, entry, folder);
}

CStringArray FrameState::RecentDeliveries()
{
    CStringArray recent;
    for (int place = 0; place < recentCount; ++place) {
        if (CString path = Read(recentSection, RecentEntry(place)); !path.empty()) recent.Add(path);
    }
    return recent;
}

void FrameState::AddRecentDelivery(const CString& folder)
{
    ProfileStore* const profile = GetHostServices().profile;
    if (profile == nullptr) return;
    // One write: another viewer may add one of its own at the same time.
    profile->WriteTogether([&folder] {
        CStringArray recent{folder};
        for (const CString& before : RecentDeliveries()) {
            if (before != folder && recent.GetSize() < recentCount) recent.Add(before);
        }
        for (int place = 0; place < recent.GetSize(); ++place) {
            Write(recentSection, RecentEntry(place), recent[place]);
        }
        return true;
    });
}

CString FrameState::OpenDelivery()
{
    return Read(section, openEntry);
}

void FrameState::SetOpenDelivery(const CString& folder)
{
    Write(section, openEntry, folder);
}

bool FrameState::OpensLast()
{
    return Read(section, opensLastEntry) == "1";
}

void FrameState::SetOpensLast(bool wanted)
{
    Write(section, opensLastEntry, wanted ? "1" : "0");
}
