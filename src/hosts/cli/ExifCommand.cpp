#include "hosts/cli/Commands.h"
#include "hosts/cli/PhotoDescriptions.h"
#include "imagefacts/FactsByTitle.h"
#include "imagefacts/ToviExifInfo.h"
#include "photos/ToviPhoto.h"
#include "platform/pictures/LumImage.h"

namespace
{
constexpr const char* fileTitles[] = {"ファイルサイズ", "幅×高さ",      "総画素数",
                                      "作成日時",       "最終更新日時", "読み取り専用"};

struct Arguments
{
    DeliveryArguments delivery;
    PhotoChoice choice;
};

Json FactsOf(ToviPhoto& photo, int index)
{
    // Read whole at first, so that the file is opened once.
    const ToviExifInfo& exif = photo.GetExif();
    Json facts = Json::Object({{"index", index}, {"hasExif", photo.CheckExif()}});
    facts.Add("date", ToJson(exif.GetDate()));
    facts.Add("image", ToJson(exif.GetImage()));
    facts.Add("maker", ToJson(exif.GetMaker()));
    facts.Add("format", ToJson(exif.GetFormat()));
    facts.Add("shoot", ToJson(exif.GetShoot()));
    facts.Add("gps", ToJson(exif.GetGPS()));
    Json file = Json::Object();
    FileFacts fileFacts = photo.GetFileFacts();
    for (const char* title : fileTitles) file.Add(title, fileFacts.ByTitle(title));
    facts.Add("file", file);
    return facts;
}

int Run(const Arguments& arguments)
{
    return DescribePhotos(arguments.delivery, arguments.choice, "Exif情報の読み込み",
                          [](ToviData&) { return FactsOf; });
}
} // namespace

Command ExifCommand()
{
    const auto arguments = std::make_shared<Arguments>();
    return {.name = "exif",
            .help = "写真のExif情報とファイル情報を表示する",
            .options =
                Joined({DeliveryOptions(arguments->delivery), {AtOption(arguments->choice)}}),
            .footer = "出力: "
                      "[{\"index\",\"hasExif\",\"date\":[{\"item\",\"value\"}],\"image\",\"maker\","
                      "\"format\","
                      "\"shoot\",\"gps\",\"file\":{...}}]",
            .run = [arguments] { return Run(*arguments); }};
}
