#include "reports/SvgWorkFiles.h"

#include "platform/files/MibFile.h"
#include "platform/pictures/VectorAdaptor.h"
#include "work/RunWorkFile.h"

namespace
{
constexpr unsigned short thumbSide = 128;
} // namespace

bool MakeSvgThumb(const char* svgPath, CString& thumbPath)
{
    thumbPath = RunWorkFile(svgPath, "_thumb.jpg");
    if (thumbPath.empty()) return false;
    return MibIsFileExist(thumbPath) ||
           CreateJepgFromSVG_Size(svgPath, thumbPath.c_str(), thumbSide, thumbSide);
}

bool MakeSvgPage(const char* svgPath, CString& pagePath)
{
    pagePath = RunWorkFile(svgPath, ".htm");
    if (pagePath.empty()) return false;
    return MibIsFileExist(pagePath) ||
           SVGtoHTML2(svgPath, pagePath.c_str(), MibProgramPath().c_str());
}
