#include "hosts/cli/Commands.h"
#include "hosts/cli/PhotoDescriptions.h"
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
    Json facts = {{"index", index}, {"hasExif", photo.CheckExif()}};
    const ToviExifInfo& exif = photo.GetExif();
    facts["date"] = ToJson(exif.GetDate());
    facts["image"] = ToJson(exif.GetImage());
    facts["maker"] = ToJson(exif.GetMaker());
    facts["format"] = ToJson(exif.GetFormat());
    facts["shoot"] = ToJson(exif.GetShoot());
    facts["gps"] = ToJson(exif.GetGPS());
    facts["file"] = Json::object();
    for (const char* title : fileTitles) {
        CString value;
        photo.GetFileInfoFromTitle(title, value);
        facts["file"][title] = value;
    }
    return facts;
}

int Run(const Arguments& arguments)
{
    return DescribePhotos(arguments.delivery, arguments.choice, "Exif情報の読み込み",
                          [](ToviData&) { return FactsOf; });
}
} // namespace

void AddExifCommand(CLI::App& app, int& status)
{
    static Arguments arguments;
    CLI::App* command = app.add_subcommand("exif", "写真のExif情報とファイル情報を表示する");
    command->group("コマンド");
    AddDeliveryArguments(*command, arguments.delivery);
    AddAtOption(*command, arguments.choice);
    command->footer(
        "出力: "
        "[{\"index\",\"hasExif\",\"date\":[{\"item\",\"value\"}],\"image\",\"maker\",\"format\","
        "\"shoot\",\"gps\",\"file\":{...}}]");
    command->callback([&status] { status = Run(arguments); });
}
