#include "review/LabelCorrection.h"

#include "platform/host/HostServices.h"

bool ConfirmLabelCorrection()
{
    const HostServices& host = GetHostServices();
    return host.userInterface != nullptr &&
           host.userInterface->ShowMessage("付箋の一括訂正・削除処理を実行します。よろしいですか？",
                                           host.applicationName, MessageButtons::OkCancel,
                                           MessageIcon::Question) == MessageAnswer::Ok;
}
