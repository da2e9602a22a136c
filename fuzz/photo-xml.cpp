// A PHOTO.XML on its whole road: recognised, read with its kind's definitions, hung into the tree.

#include "Fuzz.h"

#include "delivery/ToviData.h"
#include "delivery/ToviEnouDataFactory.h"
#include "items/ToviPhotoCtrlVisualSetting.h"
#include "loading/DeliveryLocation.h"
#include "photos/ToviPhoto.h"

#include <memory>

void Try(std::string_view input)
{
    Folder().Write("PHOTO/PHOTO.XML", input);
    const CString folder = Folder().Path("PHOTO");
    ToviEnouDataFactory factory;
    const std::unique_ptr<ToviData> document(
        factory.Create(nullptr, folder.c_str(), GuessFamily(folder), nullptr, nullptr));
    if (!document) {
        Require(!factory.GetProblem().empty() || !input.empty(), "a refusal has a reason");
        return;
    }
    document->BuildTreeNode(ToviPhotoCtrlVisualSetting::TreeWorkTypeFull);
    document->BuildTreeNode(ToviPhotoCtrlVisualSetting::TreePlace);
    for (int i = 0; i < document->GetTotalCountPhoto(); ++i) {
        ToviPhoto& photo = *document->GetPhotoActualPhotoArray(i);
        const CString path = photo.GetImagePath();
        Require(path.empty() || path.starts_with(folder), "a photograph is in its delivery");
        Require(path.find("/../") == CString::npos, "no path climbs");
    }
}
