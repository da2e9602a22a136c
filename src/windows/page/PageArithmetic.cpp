#include "windows/page/PageArithmetic.h"

void PageArithmetic::ResetPageCount(int top, int photoCount)
{
    if (photosOnPage == 0) return;
    currentPage = photoCount > 0 && top >= 0 ? top / photosOnPage + 1 : 1;
    totalPage = (photoCount + photosOnPage - 1) / photosOnPage;
}

int PageArithmetic::NormalizeTopPhotoId(int position, int photoCount) const
{
    return GetPageNumber(position, photoCount) * photosOnPage;
}

int PageArithmetic::GetPageNumber(int position, int photoCount) const
{
    return photosOnPage > 0 && photoCount > 0 ? position / photosOnPage : 0;
}
