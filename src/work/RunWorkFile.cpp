#include "work/RunWorkFile.h"

#include "platform/files/Digest.h"
#include "platform/files/MibFile.h"
#include "platform/files/RunFolder.h"
#include "work/WorkFolder.h"

/// Made anew where the work folder has moved or somebody has cleared it.
CString RunWorkFolder()
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

CString WorkFileIn(const CString& folder, const CString& source, const CString& end)
{
    return folder.empty() ? folder : folder + '/' + FileDigest(source) + end;
}

CString RunWorkFile(const CString& source, const CString& end)
{
    return WorkFileIn(RunWorkFolder(), source, end);
}
