#include "history/HistoryPath.h"

#include "platform/files/FileVersion.h"
#include "platform/files/UserFolders.h"

CString FolderOfHistories()
{
    return StateFolder("history");
}

CString HistoryPathOf(const CString& photoFolder)
{
    const CString folder = FolderOfHistories();
    const CString version = FileVersion(photoFolder + "PHOTO.XML");
    if (folder.empty() || version.empty()) return {};
    return folder + '/' + version + ".sqlite3";
}
