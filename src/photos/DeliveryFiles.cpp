#include "photos/DeliveryFiles.h"

#include "platform/files/MibFile.h"

#include <algorithm>

CString DeliveryFiles::Readable(const CString& path) const
{
    const bool isReadable =
        roots ? std::any_of(roots->begin(), roots->end(),
                            [&path](const CString& root) { return MibIsFileInside(root, path); })
              : MibIsFileExist(path);
    return isReadable ? path : CString();
}
