#include "reports/PhotoOutput.h"

#include "delivery/ToviData.h"
#include "imagefacts/ToviExifInfo.h"
#include "items/ToviItemDef.h"
#include "photos/ToviPhoto.h"
#include "platform/files/MibCopy.h"
#include "platform/files/MibFile.h"
#include "platform/host/HostServices.h"
#include "reports/OutputPhotoFolder.h"
#include "reports/PhotoExport.h"
#include "review/SlideMode.h"
#include "work/Utility.h"

#include <algorithm>

namespace
{
constexpr const char* inDelivery =
    "納品データのフォルダには保存できません。\n別のフォルダを指定してください。";

constexpr int longestList = 10;

void Tell(const CString& text, MessageIcon icon = MessageIcon::Information)
{
    const HostServices& host = GetHostServices();
    if (host.userInterface == nullptr) return;
    host.userInterface->ShowMessage(text, host.applicationName, MessageButtons::Ok, icon);
}

CString FolderOf(const CString& path)
{
    return path.substr(0, std::max<std::size_t>(path.rfind('/'), 1));
}

/// Why the photographs can't go to \p folder; empty when they can.
CString WhyNotTo(const CString& folder, const ToviData& document, PhotoExport& photos)
{
    if (IsDeliveryFolder(document, folder)) return inDelivery;
    if (photos.IsFree(folder)) return {};
    return "指定フォルダには出力ファイルと同名のファイルが存在します。\n別のフォルダを指定してくだ"
           "さい。";
}

/// The photographs that failed for want of a name, which nobody could find by what is missing.
CString WhichHaveNoName(const PhotoExport::Outcome& outcome)
{
    CString text;
    int count = 0;
    for (const PhotoExport::Failure& failure : outcome.failures) {
        if (!failure.name.empty()) continue;
        if (++count <= longestList) text += '\n' + failure.identity;
    }
    if (count > longestList) text += Format("\nほか%d枚", count - longestList);
    return text.empty() ? text : "\n\n保存できなかった写真：" + text;
}

/// Lets the user choose until the photographs can go there; empty when he gives up.
CString ChooseFolder(const ToviData& document, PhotoExport& photos)
{
    CString folder = GetOutputPhotoFolder();
    while (Utility2::BrowseForFolder(folder, nullptr)) {
        const CString why = WhyNotTo(folder, document, photos);
        if (why.empty()) return folder;
        Tell(why);
    }
    return {};
}
} // namespace

void OutputShownPhotos(ToviData& document)
{
    if (RefuseInSlideMode(SlideModeRefusal::SavePhoto)) return;
    if (document.GetCurrentPhotoCount() == 1) {
        OutputOnePhoto(document);
    } else {
        OutputAllPhoto(document);
    }
}

void OutputOnePhoto(ToviData& document)
{
    ToviPhoto* photo = document.GetPhoto(0);
    if (photo == nullptr) {
        Tell("出力可能な写真がありませんでした。");
        return;
    }
    const CString name =
        photo->GetTitle(document.GetItemDef()->GetIndexFromTitle("写真ファイル名"));
    SaveUnderChosenName(document, name, ToviExifInfo::IsSvg(name),
                        [photo](const CString& path) { return SaveDelivered(*photo, path); });
}

void OutputAllPhoto(ToviData& document)
{
    PhotoExport photos(document);
    const CString folder = ChooseFolder(document, photos);
    if (folder.empty()) return;
    SetOutputPhotoFolderPath(folder);
    const PhotoExport::Outcome outcome = photos.CopyAll();
    Tell(Format("処理を完了しました。\n\n対象枚数   ： %d枚\nコピー枚数： %d枚\n失敗枚数   ： %d枚",
                photos.Count(), outcome.copied, photos.Count() - outcome.copied) +
         WhichHaveNoName(outcome));
}

CString SaveDelivered(ToviPhoto& photo, const CString& path)
{
    const CopyFailure failure = MibCopyFileEx(photo.ReadablePath(), path);
    return failure == CopyFailure::None ? CString() : WhyNotWritten(path, failure);
}

void SaveUnderChosenName(const ToviData& document, const CString& name, bool isSvg,
                         const std::function<CString(const CString&)>& save)
{
    UserInterface* const user = GetHostServices().userInterface;
    // A delivered name may be a path.
    const CString proposed = MibGetFileName(ReplaceAll(name, "\\", "/"));
    const SaveQuestion question =
        isSvg ? SaveQuestion{GetOutputPhotoFolder(), proposed, "SVG", "SVG(*.SVG)", "*.SVG"}
              : SaveQuestion{GetOutputPhotoFolder(), proposed, "JPG", "JPEG(*.JPG)", "*.JPG"};
    CString path;
    if (user == nullptr || !user->ChooseSaveFile(question, path)) return;
    const CString folder = FolderOf(path);
    if (IsDeliveryFolder(document, folder)) {
        Tell(inDelivery);
        return;
    }
    const CString problem = save(path);
    if (problem.empty()) {
        Tell("保存に成功しました。");
    } else {
        Tell("保存に失敗しました。\n" + problem, MessageIcon::Error);
    }
    SetOutputPhotoFolderPath(folder);
}
