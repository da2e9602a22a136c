#include "reports/OutputPhotoFolder.h"

#include "document/ToviData.h"
#include "platform/MibFile.h"

namespace
{
CString& OutputPhotoFolder()
{
    static CString folder;
    return folder;
}
} // namespace

CString GetOutputPhotoFolder()
{
    return OutputPhotoFolder();
}

void SetOutputPhotoFolderPath(const CString& folder)
{
    OutputPhotoFolder() = folder;
}

bool IsDeliveryFolder(const ToviData& document, const CString& folder)
{
    if (document.IsInsideDelivery(folder)) return true;
    CString above = MibAbsolutePath(document.RootPath());
    MibParentDir(above);
    return MibIsInside(above, folder) && !MibFileFind(above, "INDEX_*.XML").IsEmpty();
}
