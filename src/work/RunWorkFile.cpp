#include "work/RunWorkFile.h"

#include "platform/files/Digest.h"
#include "platform/files/MibFile.h"
#include "platform/files/RunFolder.h"
#include "work/WorkFolder.h"

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
