#include "delivery/MediaCombine.h"

#include "delivery/OpenNextDataDlg.h"
#include "delivery/ToviData.h"
#include "items/ToviItemDef.h"
#include "photos/ToviPhoto.h"
#include "photos/ToviPhotoArray.h"
#include "platform/files/FolderClaim.h"
#include "platform/files/MibCopy.h"
#include "platform/files/MibFile.h"
#include "platform/files/MountTable.h"
#include "platform/host/HostServices.h"
#include "work/DriveType.h"
#include "work/ListingFailure.h"
#include "work/ToviProgressDlg.h"
#include "work/WorkFolder.h"

#include <utility>

namespace
{
constexpr const char* areaName = "QV-CombineData";

void Tell(const CString& text, MessageIcon icon)
{
    const HostServices& host = GetHostServices();
    if (host.userInterface == nullptr) return;
    host.userInterface->ShowMessage(text, host.applicationName, MessageButtons::Ok, icon);
}

void ShowProgress(const CString& text)
{
    if (UserInterface* const user = GetHostServices().userInterface) user->ShowProgress(text);
}

DriveType DriveOf(const CString& path)
{
    return static_cast<DriveType>(ToviGetDriveType(path.c_str()));
}

bool IsUsedInPlace(DriveType drive)
{
    return drive == DriveType::Fixed || drive == DriveType::Remote || drive == DriveType::RamDisk;
}
} // namespace

void CombineArea::Delete() const
{
    if (folder.empty() || !MibIsFolderExist(folder) || FolderClaim(folder).IsOthers()) return;
    ShowProgress("作業領域のデータの削除中...");
    MibRemoveDirectory(folder, true);
    ShowProgress("");
}

CombineArea FindCombineArea()
{
    const CString suite = SuiteFolder();
    if (suite.empty()) return {};
    const CString folder = suite + areaName;
    return {folder, folder + "/PHOTO"};
}

bool StartsCombineArea(const CString& path)
{
    return IsOnDisc(path) && !MibIsInside(FindCombineArea().folder, path);
}

MediaCombine::MediaCombine(ToviData& opened) : document(opened), area(FindCombineArea()) {}

bool MediaCombine::Run(CString path, bool rebuildPaths)
{
    while (Take(path, rebuildPaths)) {
        CStringArray missing = MissingNames();
        if (missing.IsEmpty()) {
            Tell("写真データの取込（コピー）が完了しました。\n『QV-フォトビューア』での閲覧を開始し"
                 "ます。",
                 MessageIcon::Information);
            return true;
        }
        OpenNextDataDlg dialog(path, std::move(missing));
        if (!dialog.DoModal()) return true;
        path = dialog.GetFolder();
        rebuildPaths = false;
    }
    return false;
}

bool MediaCombine::Take(const CString& path, bool rebuildPaths)
{
    CString source = path;
    ToviGetUniversalName(path.c_str(), source, true);
    const DriveType drive = DriveOf(source);
    // A work folder on a removable disk: a copy of the area would have to be copied over itself.
    const bool isGathered = MibIsInside(area.folder, source);
    if (isGathered && !ClaimArea()) return false;
    if (IsUsedInPlace(drive) || isGathered) {
        dataFolder = source;
        PointDocumentAtData(false);
        return true;
    }
    if (drive != DriveType::Removable && drive != DriveType::Optical) {
        Tell("不正なフォルダパスです。再度パスの指定を行ってください。", MessageIcon::Warning);
        return false;
    }
    if (!ClaimArea()) return false;
    if (!CopyDisc(source)) {
        claim.reset();
        document.HoldFolder(nullptr);
        area.Delete();
        return false;
    }
    // Known as the delivery's, too: what is saved must not land on the disc.
    document.RootPath(source.c_str());
    dataFolder = area.photoFolder;
    PointDocumentAtData(rebuildPaths);
    return true;
}

bool MediaCombine::ClaimArea()
{
    if (claim) return true;
    MibCreateDirectory(area.folder, IntoDelivery::Allowed);
    auto made = std::make_shared<FolderClaim>(area.folder);
    if (made->IsOthers()) {
        Tell("メディアから取り込んだ別の納品データが、ほかのプログラムで開かれています。\nそれを閉"
             "じて"
             "から、もう一度開いてください。",
             MessageIcon::Warning);
        return false;
    }
    claim = made;
    document.HoldFolder(std::move(made));
    return true;
}

bool MediaCombine::CopyDisc(const CString& source)
{
    return CopyFilesAbove(source) && CopyPhotographs(source);
}

/// The index file and the DTDs beside it, unless the disc begins with \p source: what is above it
/// then isn't the delivery's.
bool MediaCombine::CopyFilesAbove(const CString& source) const
{
    CString above = MibAbsolutePath(source);
    MibParentDir(above);
    if (area.folder.empty() || DriveOf(above) != DriveOf(source)) return true;
    CStringArray files;
    if (!MibListFiles(above, files)) {
        TellNotListed(above + "*.*", MessageIcon::Warning);
        return false;
    }
    MibCreateDirectory(area.photoFolder, IntoDelivery::Allowed);
    for (const CString& file : files) {
        MibFileDirCopy(file, area.folder, true, IntoDelivery::Allowed);
    }
    return true;
}

bool MediaCombine::CopyPhotographs(const CString& source)
{
    MibDeepCopyDirectory copy(source, area.photoFolder);
    ToviProgressDlg progress(false);
    progress.Begin(copy.CountFiles());
    progress.SetMessage("写真・参考図 のコピー中...");
    const bool copied = copy.Execute([&] {
        progress.StepIt();
        cancelled = progress.GetCancel();
        return !cancelled;
    });
    progress.DestroyWindow();
    if (!copied && !cancelled) {
        Tell("写真データの取込（コピー）に失敗しました。\nメディア単位での閲覧を行ってください。",
             MessageIcon::Warning);
    }
    return copied;
}

void MediaCombine::PointDocumentAtData(bool forgetPaths)
{
    document.RootPath(dataFolder.c_str());
    document.GetItemDef()->SetRootPath(dataFolder);
    document.Title(dataFolder.c_str());
    for (ToviPhoto* photo : *document.GetPhotoDataArray()) {
        if (forgetPaths) {
            photo->ClearImagePath();
            // Made at once: a reference drawing that is still found on the disc would keep its path
            // there, and be gone with the disc.
            photo->MakePath();
        }
        if (!photo->IsExistFile()) photo->UpdateImagePath();
    }
}

CStringArray MediaCombine::MissingNames() const
{
    CStringArray names;
    for (ToviPhoto* photo : *document.GetPhotoDataArray()) {
        if (!photo->IsExistFile()) photo->GetOutputFilename(names);
    }
    return names;
}
