#include "reports/PhotoExport.h"

#include "delivery/ToviData.h"
#include "items/ToviItemDef.h"
#include "photos/ToviPhoto.h"
#include "platform/files/MibFile.h"
#include "reports/OutputPhotoFolder.h"
#include "work/ToviProgressDlg.h"

#include <algorithm>

namespace
{
/// False for a name that is none, which would leave nothing in the path to go on from, or more than
/// one, which would make another folder of it.
bool TakesPart(const CString& name)
{
    constexpr std::string_view separators("/\\\0", 3);
    return !name.empty() && name.find_first_of(separators) == CString::npos;
}

/// False for a name that would lead out of the folder it is put into.
bool IsPlainName(const CString& name)
{
    return name != "." && name != ".." && TakesPart(name);
}

CString FolderOf(const CString& path)
{
    return path.substr(0, path.rfind('/'));
}
} // namespace

PhotoExport::PhotoExport(ToviData& shown) : document(shown)
{
    const int nameIndex = document.GetItemDef()->GetIndexFromTitle("写真ファイル名");
    for (const int index : document.GetCurrentArray()) {
        ToviPhoto* const photo = document.GetPhotoActualPhotoArray(index);
        photos.push_back({photo->GetTitle(nameIndex), index, photo});
    }
}

bool PhotoExport::IsFree(const CString& folder)
{
    chosenFolder = folder;
    const auto first = std::ranges::find_if(photos, TakesPart, &Source::name);
    targetName = first == photos.end() ? CString() : first->name;
    target = folder + '/' + targetName;
    for (const Source& photo : photos) {
        MoveTo(photo.name);
        if (MibIsFileExist(target)) return false;
    }
    return true;
}

void PhotoExport::MoveTo(const CString& name)
{
    if (!TakesPart(name)) return;
    target = ReplaceAll(target, targetName, name);
    targetName = name;
}

PhotoExport::Outcome PhotoExport::CopyAll()
{
    ToviProgressDlg progress(true);
    progress.Begin(Count());
    Outcome outcome;
    for (const Source& photo : photos) {
        MoveTo(photo.name);
        const CopyFailure failure = Copy(photo);
        if (failure == CopyFailure::None) {
            ++outcome.copied;
            written.insert(target);
            outcome.bytes += MibFileSize(target);
        } else {
            outcome.failures.push_back({photo.name, photo.index, IdentityOf(photo), failure});
        }
        progress.SetMessage(Format("写真の保存中　%d / %d", outcome.copied, Count()));
        outcome.cancelled = progress.GetCancel();
        if (outcome.cancelled) break;
        progress.StepIt();
    }
    return outcome;
}

CString PhotoExport::IdentityOf(const Source& photo) const
{
    if (!photo.name.empty()) return photo.name;
    const CString serial =
        photo.photo->GetTitle(document.GetItemDef()->GetIndexFromTitle("シリアル番号"));
    const CString number = Format("%d枚目", photo.index + 1);
    return "写真ファイル名のない写真（" +
           (serial.empty() ? number : "シリアル番号 " + serial + "、" + number) + "）";
}

CopyFailure PhotoExport::Copy(const Source& photo) const
{
    if (!IsPlainName(photo.name)) return CopyFailure::Other;
    // The names come from the delivery, and what they have made of the path may lead into it.
    const CString folder = FolderOf(target);
    if (folder != chosenFolder) {
        if (IsDeliveryFolder(document, folder)) return CopyFailure::NotWritable;
        // The look for files in the way was in the chosen folder.
        if (MibIsFileExist(target) && !written.contains(target)) return CopyFailure::Other;
    }
    const CString path = photo.photo->ReadablePath();
    return path.empty() ? CopyFailure::NoSource : MibCopyFileEx(path, target);
}
