#include "platform/store/FileProfileStore.h"

#include "platform/files/UserFolders.h"
#include "platform/host/HostServices.h"

namespace
{
constexpr const char* damagedText = "設定ファイルを読み取れないため、既定の設定を使用します。";
constexpr const char* setAsideText = "\n読み取れないファイルは、次の名前で残してあります。\n%s";

void TellDamaged(const CString& text)
{
    const HostServices& host = GetHostServices();
    if (host.userInterface == nullptr) return;
    host.userInterface->ShowMessage(text, host.applicationName, MessageButtons::Ok,
                                    MessageIcon::Warning);
}
} // namespace

FileProfileStore::FileProfileStore(const CString& path) : file(path) {}

bool FileProfileStore::WriteProfileString(const CString& section, const CString& entry,
                                          const CString& value)
{
    Follow();
    return file.Write(section, entry, value);
}

bool FileProfileStore::WriteTogether(const std::function<bool()>& write)
{
    Follow();
    return file.WriteTogether(write);
}

std::optional<CString> FileProfileStore::Read(const CString& section, const CString& entry) const
{
    Follow();
    const CString* value = file.Find(section, entry);
    return value != nullptr ? std::optional(*value) : std::nullopt;
}

void FileProfileStore::Follow() const
{
    if (!file.Refresh() || !file.IsDamaged()) return;
    CString text = damagedText;
    if (file.SetAside()) text += Format(setAsideText, file.DamagedPath().c_str());
    // Last, because the message may run the host's event loop, which may ask for a value again.
    TellDamaged(text);
}

bool UnsavedProfileStore::WriteProfileString(const CString& section, const CString& entry,
                                             const CString& value)
{
    written.Set(section, entry, value);
    return true;
}

std::optional<CString> UnsavedProfileStore::Read(const CString& section, const CString& entry) const
{
    const CString* value = written.Find(section, entry);
    return value != nullptr ? std::optional(*value) : FileProfileStore::Read(section, entry);
}

CString DefaultProfilePath()
{
    return ConfigurationFile("profile.ini");
}
