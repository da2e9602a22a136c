#include "reports/OutputPhotoFolder.h"

#include "delivery/ToviData.h"
#include "kinds/IndexStylesheets.h"
#include "platform/files/DeliveredFolder.h"
#include "platform/files/MibFile.h"

#include <algorithm>

namespace
{
CString& OutputPhotoFolder()
{
    static CString folder;
    return folder;
}

/// A file with only the name of an index doesn't make the folder above a delivery.
bool HasIndex(const CString& folder)
{
    const CStringArray others = MibFileFind(folder, "PHOTO_*.XML");
    return !MibFileFind(folder, "INDEX_*.XML").IsEmpty() ||
           std::any_of(others.begin(), others.end(),
                       [](const CString& path) { return !ReadIndexDoctypeLine(path).empty(); });
}

/// \p root is the folder of a PHOTO.XML.
bool LiesInDelivery(const CString& root, const CString& folder)
{
    if (MibIsInside(root, folder)) return true;
    CString above = MibAbsolutePath(root);
    MibParentDir(above);
    return MibIsInside(above, folder) && HasIndex(above);
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
    if (IsInDelivery(folder)) return true;
    const CStringArray roots = document.DeliveryRoots();
    return std::any_of(roots.begin(), roots.end(),
                       [&folder](const CString& root) { return LiesInDelivery(root, folder); });
}
