#include "hosts/viewer/SampleDelivery.h"

#include "platform/files/MibCopy.h"
#include "platform/files/MibFile.h"
#include "platform/files/UserFolders.h"
#include "platform/text/QtText.h"

#include <QProcess>

namespace
{
constexpr const char* program = "tovi-sample";
constexpr int longestTime = 60'000;

/// Empty when the folder of the programs isn't known: nothing is started from the current one.
CString ProgramFile()
{
    const CString folder = MibProgramPath();
    return folder.starts_with('/') ? folder + program : CString();
}
} // namespace

bool SampleDelivery::CanBeMade()
{
    return MibIsFileExist(ProgramFile());
}

CString SampleDelivery::Make()
{
    const CString cache = CurrentUserFolders().cache;
    if (cache.empty()) return {};
    const CString folder = cache + "/見本の納品データ";
    if (MibIsFileExist(folder + "/PHOTO/PHOTO.XML")) return folder;
    // One that was broken off would stand in the way.
    MibRemoveDirectory(folder, true);
    if (!MibCreateDirectory(cache)) return {};
    const int status = [&folder] {
        QProcess process;
        process.start(QtText(ProgramFile()),
                      {QtText(folder), QStringLiteral("--photos"), QStringLiteral("60")});
        if (!process.waitForFinished(longestTime)) return -1;
        return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    }();
    return status == 0 ? folder : CString();
}
