#include "work/Utility.h"

#include "platform/host/HostServices.h"

namespace
{
constexpr const char* chooserTitle = "フォルダの選択";

bool Choose(CString& folder, const CString& title, FolderChooserStyle style)
{
    UserInterface* const user = GetHostServices().userInterface;
    return user != nullptr && user->ChooseFolder(folder, title, style);
}
} // namespace

// The host knows by itself which of its windows is in front.
bool Utility::BrowseForFolder(CString& folder, CWnd* /*parent*/, const CString& title)
{
    return Choose(folder, title, FolderChooserStyle::Plain);
}

bool Utility2::BrowseForFolder(CString& folder, CWnd* /*parent*/)
{
    return Choose(folder, chooserTitle, FolderChooserStyle::WithEditField);
}
