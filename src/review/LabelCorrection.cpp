#include "review/LabelCorrection.h"

#include "platform/HostServices.h"

bool ConfirmLabelCorrection()
{
    const HostServices& host = GetHostServices();
    return host.userInterface != nullptr &&
           host.userInterface->ShowMessage("付箋の一括訂正・削除処理を実行します。よろしいですか？",
                                           host.applicationName, MessageButtons::OkCancel,
                                           MessageIcon::Question) == MessageAnswer::Ok;
}

bool PasteOkOnAll(const ToviPhotoArray& photos, const ToviPhotoRef& shown)
{
    for (const int index : shown) {
        if (!photos[index]->HasNGLabel()) photos[index]->PasteLabel(LabelOk);
    }
    return !shown.IsEmpty();
}

bool RemoveChecksFromAll(const ToviPhotoArray& photos, const ToviPhotoRef& shown)
{
    for (const int index : shown) photos[index]->CorrectAllNotCheck();
    return !shown.IsEmpty();
}

void RemoveAllFromAll(const ToviPhotoArray& photos, const ToviPhotoRef& shown)
{
    for (const int index : shown) photos[index]->RemoveAllLabel();
}
