#include "work/ListingFailure.h"

#include "platform/host/HostServices.h"

void TellNotListed(const CString& pattern, MessageIcon icon)
{
    const HostServices& host = GetHostServices();
    if (host.userInterface == nullptr) return;
    host.userInterface->ShowMessage("ファイルの取得に失敗しました。\n（" + pattern + "）",
                                    host.applicationName, MessageButtons::Ok, icon);
}
