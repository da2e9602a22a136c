#include "platform/exif/PictureSize.h"

CString SizeText(int width, int height)
{
    return Format("%d×%d", width, height);
}

CString TotalPixelsText(int width, int height)
{
    constexpr long long unit = 10000;
    const long long pixels = static_cast<long long>(width) * height;
    if (pixels < unit) return Format("%lld画素", pixels);
    return Format("%lld万画素", (pixels + unit / 2) / unit);
}
