#include "hosts/cli/PhotoDescriptions.h"

#include "photos/ToviPhoto.h"
#include "platform/host/HostServices.h"

namespace
{
constexpr int photosPerReport = 10;
}

int DescribePhotos(const DeliveryArguments& arguments, const PhotoChoice& choice, const char* work,
                   const std::function<PhotoDescription(ToviData&)>& begin)
{
    const OpenedDelivery delivery = OpenDelivery(arguments);
    if (!delivery.IsLoaded()) return ExitFailed;
    ToviData& document = *delivery.document;
    ToviPhotoRef chosen;
    if (!FindChosen(document, choice, chosen)) return ExitWrongUsage;
    const PhotoDescription describe = begin(document);
    UserInterface& user = *GetHostServices().userInterface;
    JsonArrayWriter output;
    int done = 0;
    for (const int index : chosen) {
        output.Add(describe(*document.GetPhotoActualPhotoArray(index), index));
        if (done++ % photosPerReport == 0) {
            user.ShowProgress(Format("%s　%d / %d枚", work, done, chosen.GetSize()));
        }
    }
    user.ShowProgress("");
    return ExitDone;
}
