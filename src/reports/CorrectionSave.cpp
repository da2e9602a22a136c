#include "reports/CorrectionSave.h"

#include "delivery/ToviData.h"
#include "imagefacts/ToviExifInfo.h"
#include "items/ToviItemDef.h"
#include "photos/ToviPhoto.h"
#include "platform/files/MibCopy.h"
#include "platform/files/MibFile.h"
#include "platform/host/HostServices.h"
#include "reports/PhotoOutput.h"
#include "reports/ToviSelectOutputPhotoDlg.h"
#include "review/SlideMode.h"

namespace
{
constexpr unsigned bestQuality = 2;

void SayThatThereIsNone()
{
    const HostServices& host = GetHostServices();
    if (host.userInterface == nullptr) return;
    host.userInterface->ShowMessage("保存可能な写真がありません。", host.applicationName,
                                    MessageButtons::Ok, MessageIcon::Information);
}
} // namespace

void CorrectionSave::Run(const CorrectedPhoto& corrected) const
{
    if (RefuseInSlideMode(SlideModeRefusal::SavePhoto)) return;
    if (corrected.photo == nullptr) {
        if (window == Window::Image) SayThatThereIsNone();
        return;
    }
    ToviPhoto& photo = *corrected.photo;
    const LumImage* worked = nullptr;
    if (corrected.IsChanged() && corrected.isShown) {
        ToviSelectOutputPhotoDlg dialog;
        if (!dialog.DoModal()) return;
        if (dialog.IsSelectedWorkedPhotoMode()) worked = corrected.picture;
    }
    const CString name = photo.GetTitle(document.GetItemDef()->GetIndexFromTitle("写真ファイル名"));
    SaveUnderChosenName(document, name, IsSvg(photo, name), [&](const CString& path) {
        if (worked != nullptr) return worked->Save(path.c_str(), LumJpeg, bestQuality);
        return MibCopyFileEx(photo.ReadablePath(), path) == CopyFailure::None;
    });
}

bool CorrectionSave::IsSvg(ToviPhoto& photo, const CString& name) const
{
    return window == Window::Image ? ToviExifInfo::IsSvg(name)
                                   : ToviExifInfo::IsSvg(photo.GetImagePath());
}
