// A READITEM.XML: its definitions are read, and a sound PHOTO.XML is walked by them.

#include "Fuzz.h"

#include "delivery/ToviData.h"
#include "delivery/ToviEnouDataFactory.h"
#include "items/ToviPhotoCtrlVisualSetting.h"
#include "sample/DeliveryBuilder.h"

#include <memory>

namespace
{
/// The folder of PHOTO.XML. The program's folder, where the definitions are looked for, is the
/// delivery's.
const CString& Delivery()
{
    static const CString folder = [] {
        DeliveryBuilder({.photos = 2, .drawings = 2, .images = false}).Write(Folder().Path());
        HostServices services = GetHostServices();
        services.programPath = Folder().Path("tovi");
        InstallHostServices(services);
        return Folder().Path("PHOTO");
    }();
    return folder;
}
} // namespace

void Try(std::string_view input)
{
    const CString& folder = Delivery();
    Folder().Write("READITEM.XML", input);
    ToviEnouDataFactory factory;
    std::unique_ptr<ToviData> document;
    try {
        document.reset(factory.Create(nullptr, folder.c_str(), PhotoXMLMlit, nullptr, nullptr));
    } catch (const InvalidArgument&) {
        // That is what definitions that don't balance are answered with.
        return;
    }
    if (document) document->BuildTreeNode(ToviPhotoCtrlVisualSetting::TreeWorkTypeFull);
}
