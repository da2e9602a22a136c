#include "history/HistoryPlace.h"

#include "platform/files/FileVersion.h"
#include "platform/files/UserFolders.h"

CString HistoryPathOf(const CString& photoFolder)
{
    const CString folder = StateFolder("history");
    const CString version = FileVersion(photoFolder + "PHOTO.XML");
    if (folder.empty() || version.empty()) return {};
    return folder + '/' + version + ".sqlite3";
}
