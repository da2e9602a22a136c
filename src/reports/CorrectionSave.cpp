#include "reports/CorrectionSave.h"

#include "delivery/ToviData.h"
#include "imagefacts/ToviExifInfo.h"
#include "items/ToviItemDef.h"
#include "photos/ToviPhoto.h"
#include "platform/files/AtomicFile.h"
#include "platform/files/MibCopy.h"
#include "platform/files/MibFile.h"
#include "platform/host/HostServices.h"
#include "platform/pictures/LumImage.h"
#include "platform/pictures/ToneCurve.h"
#include "reports/PhotoOutput.h"
#include "reports/ToviSelectOutputPhotoDlg.h"
#include "review/SlideMode.h"

namespace
{
constexpr const char* correctedMark = "_表示調整済み";
constexpr unsigned long white = 0xFFFFFF;

/// A name for a corrected copy of the file \p name, which is a JPEG whatever the file is.
CString CorrectedName(const CString& name)
{
    const CString extension = MibGetExt(name);
    const bool isJpeg = EqualNoCase(extension, ".jpg") || EqualNoCase(extension, ".jpeg");
    const CString title = name.substr(0, name.size() - extension.size());
    return title + correctedMark + (isJpeg ? extension : ".JPG");
}

/// What is wrong in a sentence; empty when the corrected picture was saved.
CString SaveCorrected(const CorrectedPhoto& corrected, const CString& path)
{
    const char* const original = corrected.photo->ReadablePath();
    LumImage picture;
    if (!picture.LoadWhole(original)) return WhyNotWritten(path, WriteFailure::NoSource);
    picture.Rotate(corrected.rotation, white, false, true);
    for (const int step : BrightnessSteps(corrected.brightness)) picture.SetContrast(step);
    corrected.photo->LoadExif();
    const CString withExif = corrected.photo->GetExif().GetPath();
    const std::optional<std::string> bytes = picture.EncodeCopy(withExif.c_str());
    WriteFailure failure = WriteFailure::Other;
    if (bytes && WriteFileAtomically(path, *bytes, &failure)) return {};
    return WhyNotWritten(path, failure);
}

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
    bool savesCorrected = false;
    if (corrected.IsChanged() && corrected.isShown) {
        ToviSelectOutputPhotoDlg dialog;
        if (!dialog.DoModal()) return;
        savesCorrected = dialog.IsSelectedWorkedPhotoMode();
    }
    const CString name = photo.GetTitle(document.GetItemDef()->GetIndexFromTitle("写真ファイル名"));
    if (savesCorrected) {
        SaveUnderChosenName(document, CorrectedName(name), false,
                            [&](const CString& path) { return SaveCorrected(corrected, path); });
    } else {
        SaveUnderChosenName(document, name, IsSvg(photo, name),
                            [&](const CString& path) { return SaveDelivered(photo, path); });
    }
}

bool CorrectionSave::IsSvg(ToviPhoto& photo, const CString& name) const
{
    return window == Window::Image ? ToviExifInfo::IsSvg(name)
                                   : ToviExifInfo::IsSvg(photo.GetImagePath());
}
