#include "hosts/cli/Commands.h"
#include "hosts/cli/Json.h"

#include <iostream>

namespace
{
int Run(const DeliveryArguments& arguments)
{
    const OpenedDelivery delivery = OpenDelivery(arguments);
    const CString photoFolder = delivery.photoFolder;
    Json info = {{"family", FamilyName(delivery.family)},
                 {"section", ""},
                 {"errorType", nullptr},
                 {"hasKeyPhoto", false},
                 {"rootPath", photoFolder},
                 {"title", photoFolder.empty() ? "" : photoFolder + "PHOTO.XML"},
                 {"photoCount", 0},
                 {"managementItems", Json::array()}};
    if (ToviData* document = delivery.document.get()) {
        ToviItemDef& def = *document->GetItemDef();
        info["section"] = def.GetSection();
        info["errorType"] = document->GetErrorType();
        info["hasKeyPhoto"] = def.HasKeyPhoto();
        info["rootPath"] = document->RootPath();
        info["photoCount"] = document->GetTotalCountPhoto();
        info["managementItems"] = ToJson(*document->GetMngItemPhoto(), def);
        const ReadingCounts& counts = document->GetReadingCounts();
        if (counts.photoElements > document->GetTotalCountPhoto()) {
            info["photoElements"] = counts.photoElements;
        }
        if (counts.adoptedValues > 0) info["adoptedValues"] = counts.adoptedValues;
    }
    std::cout << ToText(info) << '\n';
    return delivery.IsLoaded() ? ExitDone : ExitFailed;
}
} // namespace

void AddInfoCommand(CLI::App& app, int& status)
{
    static DeliveryArguments arguments;
    CLI::App* command =
        app.add_subcommand("info", "納品データの種類、写真の枚数、管理項目を表示する");
    command->group("コマンド");
    AddDeliveryArguments(*command, arguments);
    command->footer(
        "出力: {\"family\",\"section\",\"errorType\",\"hasKeyPhoto\",\"rootPath\",\"title\","
        "\"photoCount\",\"managementItems\":[{\"title\",\"value\"}]}\n"
        "errorType: 0 READITEM.XMLがない、1 PHOTO.XMLを認識できない、2 写真がない、3 "
        "項目定義を読めない、"
        "4 正常、null 読み込めない\n"
        "要領と違う場所に値があれば "
        "\"adoptedValues\":そこから読んだ値の数、読み込めない写真があれば "
        "\"photoElements\":PHOTO.XMLの写真情報の数を加える");
    command->callback([&status] { status = Run(arguments); });
}
