#include "reports/CheckStatusPages.h"

CArray<int> PageSizes(int photoCount)
{
    CArray<int> sizes;
    for (int full = photoCount / photosPerPage; full > 0; --full) sizes.Add(photosPerPage);
    sizes.Add(photoCount % photosPerPage);
    return sizes;
}

int FirstPhotoRow(int page)
{
    return 2 + rowsPerPage * page;
}

bool FitsSheet(int pageCount, SpreadsheetFormat format)
{
    const int rows = format == SpreadsheetFormat::Xls ? 1 << 16 : 1 << 20;
    return pageCount <= rows / rowsPerPage;
}
