#include "reports/PhotoExport.h"

#include "document/ToviData.h"
#include "platform/MibFile.h"
#include "reports/OutputPhotoFolder.h"
#include "reports/ToviProgressDlg.h"

namespace
{
/// False for a name that would lead out of the folder it is put into.
bool IsPlainName(const CString& name)
{
    constexpr std::string_view separators("/\\\0", 3);
    return !name.empty() && name != "." && name != ".." &&
           name.find_first_of(separators) == CString::npos;
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
        ToviPhoto& photo = *document.GetPhotoActualPhotoArray(index);
        photos.push_back({photo.GetTitle(nameIndex), photo.ReadablePath()});
    }
}

bool PhotoExport::IsFree(const CString& folder)
{
    chosenFolder = folder;
    targetName = photos.empty() ? CString() : photos.front().name;
    target = folder + '/' + targetName;
    for (const Source& photo : photos) {
        MoveTo(photo.name);
        if (MibIsFileExist(target)) return false;
    }
    return true;
}

void PhotoExport::MoveTo(const CString& name)
{
    if (!targetName.empty()) target = ReplaceAll(target, targetName, name);
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
            outcome.bytes += MibFileSize(target);
        } else {
            outcome.failures.push_back({photo.name, failure});
        }
        progress.SetMessage(Format("写真の保存中　%d / %d", outcome.copied, Count()));
        outcome.cancelled = progress.GetCancel();
        if (outcome.cancelled) break;
        progress.StepIt();
    }
    return outcome;
}

CopyFailure PhotoExport::Copy(const Source& photo) const
{
    if (!IsPlainName(photo.name)) return CopyFailure::Other;
    // The names come from the delivery, and what they have made of the path may lead into it.
    const CString folder = FolderOf(target);
    if (folder != chosenFolder && IsDeliveryFolder(document, folder)) {
        return CopyFailure::NotWritable;
    }
    return photo.path.empty() ? CopyFailure::NoSource : MibCopyFileEx(photo.path, target);
}
