#include "hosts/cli/Commands.h"
#include "hosts/cli/Json.h"
#include "hosts/cli/Records.h"
#include "photos/ToviPhoto.h"

#include "platform/host/HostServices.h"

namespace
{
struct Arguments
{
    DeliveryArguments delivery;
    bool facts = false;
    RecordArguments record;
};

constexpr int photosPerReport = 50;

void AddFacts(Json& entry, ToviPhoto& photo)
{
    int width = 0;
    int height = 0;
    photo.UpdateImagePath();
    const bool hasSize = photo.GetImageSize(width, height);
    entry.Add("fileExists", photo.IsExistFile());
    entry.Add("width", hasSize ? Json(width) : Json(nullptr));
    entry.Add("height", hasSize ? Json(height) : Json(nullptr));
}

void AddReview(Json& entry, const ToviPhoto& photo)
{
    entry.Add("labels", LabelsOf(photo));
    entry.Add("comment", photo.GetComment());
}

int Run(const Arguments& arguments)
{
    const OpenedDelivery delivery = OpenDelivery(arguments.delivery);
    JsonArrayWriter output;
    if (!delivery.IsLoaded()) return ExitFailed;
    ToviData& document = *delivery.document;
    if (!LoadRecord(document, arguments.record)) return ExitFailed;
    UserInterface& user = *GetHostServices().userInterface;
    const int total = document.GetTotalCountPhoto();
    for (int index = 0; index < total; ++index) {
        ToviPhoto& photo = *document.GetPhotoActualPhotoArray(index);
        Json pictures = Json::Array();
        for (const CString& path : photo.GetPicturePaths()) pictures.Add(path);
        Json entry = Json::Object({{"index", index},
                                   {"imagePath", photo.GetImagePath()},
                                   {"pictures", pictures},
                                   {"items", ToJson(photo.GetItems(), *document.GetItemDef())}});
        if (arguments.facts) AddFacts(entry, photo);
        if (!arguments.record.path.empty()) AddReview(entry, photo);
        output.Add(entry);
        if (arguments.facts && index % photosPerReport == 0) {
            user.ShowProgress(Format("写真ファイルの確認　%d / %d枚", index, total));
        }
    }
    user.ShowProgress("");
    return ExitDone;
}
} // namespace

Command PhotosCommand()
{
    const auto arguments = std::make_shared<Arguments>();
    return {.name = "photos",
            .help = "すべての写真を PHOTO.XML の順に表示する",
            .options =
                Joined({DeliveryOptions(arguments->delivery),
                        {{"--facts", "写真ファイルの有無と大きさも調べる", &arguments->facts}},
                        RecordOptions(arguments->record)}),
            .footer = "出力: [{\"index\",\"imagePath\",\"pictures\":[参考図のパス],"
                      "\"items\":[{\"title\",\"value\"}]}]\n"
                      "--facts では "
                      "\"fileExists\"（写真と参考図がすべてある）、\"width\"、\"height\" を加える\n"
                      "--record では \"labels\":[付箋]、\"comment\" を加える",
            .run = [arguments] { return Run(*arguments); }};
}
