#include "reports/SvgWorkFiles.h"

#include "loading/WorkFolder.h"
#include "platform/MibCopy.h"
#include "platform/MibFile.h"
#include "platform/VectorAdaptor.h"

namespace
{
constexpr unsigned short thumbSide = 128;

/// The path of the work file of \p svgPath that ends in \p end; empty without a place for it.
CString WorkFile(const char* svgPath, const char* end)
{
    CString folder = SuiteFolder();
    if (folder.empty()) return {};
    folder += svgWorkFolder;
    if (!MibCreateDirectory(folder)) return {};
    return folder + '/' + MibGetFileTitle(svgPath) + end;
}
} // namespace

bool MakeSvgThumb(const char* svgPath, CString& thumbPath)
{
    thumbPath = WorkFile(svgPath, "_thumb.jpg");
    if (thumbPath.empty()) return false;
    // A folder of that name goes, if there is nothing in it; a file is the thumbnail.
    MibRemoveDirectory(thumbPath, false);
    return MibIsFileExist(thumbPath) ||
           CreateJepgFromSVG_Size(svgPath, thumbPath.c_str(), thumbSide, thumbSide);
}

bool MakeSvgPage(const char* svgPath, CString& pagePath)
{
    pagePath = WorkFile(svgPath, ".htm");
    if (pagePath.empty()) return false;
    return MibIsFileExist(pagePath) ||
           SVGtoHTML2(svgPath, pagePath.c_str(), MibProgramPath().c_str());
}
