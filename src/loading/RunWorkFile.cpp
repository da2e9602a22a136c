#include "loading/RunWorkFile.h"

#include "loading/WorkFolder.h"
#include "platform/Digest.h"
#include "platform/MibFile.h"
#include "platform/RunFolder.h"

namespace
{
/// The folder of this run; made anew where the work folder has moved or somebody has cleared it.
CString FolderOfRun()
{
    static CString shared;
    static std::unique_ptr<RunFolder> folder;
    const CString suite = SuiteFolder();
    const CString wanted = suite.empty() ? suite : suite + svgWorkFolder;
    if (!folder || wanted != shared || !MibIsFolderExist(folder->Path())) {
        folder = std::make_unique<RunFolder>(wanted);
        shared = wanted;
    }
    return folder->Path();
}
} // namespace

CString RunWorkFile(const CString& source, const CString& end)
{
    const CString folder = FolderOfRun();
    return folder.empty() ? folder : folder + '/' + FileDigest(source) + end;
}
