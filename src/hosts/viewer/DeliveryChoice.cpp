#include "hosts/viewer/DeliveryChoice.h"

#include "delivery/DeliveryOpening.h"
#include "loading/DeliveryLocation.h"
#include "loading/WorkTitle.h"
#include "platform/files/MibFile.h"
#include "platform/host/HostServices.h"

namespace
{
/// What a window holds on every screen.
constexpr int mostOffered = 20;
} // namespace

bool ChooseAmongDeliveries(CString& path)
{
    const CStringArray found = FindPhotoFolders(path);
    if (found.GetSize() < 2 || found.GetSize() > mostOffered) return true;
    Choice choice;
    choice.title = "納品データの選択";
    choice.notes.Add(path + " には納品データが複数あります。開くものを選んでください。");
    for (const CString& photoFolder : found) {
        CString above = photoFolder;
        MibParentDir(above);
        choice.options.Add({DeliveryFolderName(photoFolder), ReadWorkTitle(above)});
    }
    choice.accept = "開く";
    choice.enterAccepts = true;
    int option = 0;
    if (!GetHostServices().userInterface->Choose(choice, option)) return false;
    path = found[option];
    return true;
}
