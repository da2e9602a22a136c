#include "hosts/cli/Commands.h"
#include "hosts/cli/Delivery.h"
#include "hosts/cli/Json.h"

#include <iostream>

namespace
{
/// What only a document tells, as it is without one.
struct Facts
{
    CString section = {};
    Json errorType = nullptr;
    bool hasKeyPhoto = false;
    CString rootPath;
    int photos = 0;
    Json managementItems = Json::Array();
    ReadingCounts counts = {};
};

Facts FactsOf(ToviData& document)
{
    ToviItemDef& def = *document.GetItemDef();
    return {def.GetSection(),
            static_cast<int>(document.GetErrorType()),
            def.HasKeyPhoto(),
            document.RootPath(),
            document.GetTotalCountPhoto(),
            ToJson(*document.GetMngItemPhoto(), def),
            document.GetReadingCounts()};
}

int Run(const DeliveryArguments& arguments)
{
    const OpenedDelivery delivery = OpenDelivery(arguments);
    const CString& photoFolder = delivery.photoFolder;
    const Facts facts =
        delivery.document ? FactsOf(*delivery.document) : Facts{.rootPath = photoFolder};
    Json info = Json::Object(
        {{"family", deliveryFamilies.at(static_cast<std::size_t>(delivery.family)).key},
         {"section", facts.section},
         {"errorType", facts.errorType},
         {"hasKeyPhoto", facts.hasKeyPhoto},
         {"rootPath", facts.rootPath},
         {"title", photoFolder.empty() ? "" : photoFolder + "PHOTO.XML"},
         {"photoCount", facts.photos},
         {"managementItems", facts.managementItems}});
    const ReadingCounts& counts = facts.counts;
    if (counts.photoElements > facts.photos) info.Add("photoElements", counts.photoElements);
    if (counts.adoptedValues > 0) info.Add("adoptedValues", counts.adoptedValues);
    std::cout << ToText(info) << '\n';
    return delivery.IsLoaded() ? ExitDone : ExitFailed;
}
} // namespace

Command InfoCommand()
{
    const auto arguments = std::make_shared<DeliveryArguments>();
    return {
        .name = "info",
        .help = "納品データの種類、写真の枚数、管理項目を表示する",
        .options = DeliveryOptions(*arguments),
        .footer =
            "出力: {\"family\",\"section\",\"errorType\",\"hasKeyPhoto\",\"rootPath\",\"title\","
            "\"photoCount\",\"managementItems\":[{\"title\",\"value\"}]}\n"
            "errorType: 0 READITEM.XMLがない、1 PHOTO.XMLを認識できない、2 写真がない、3 "
            "項目定義を読めない、"
            "4 正常、null 読み込めない\n"
            "要領と違う場所に値があれば "
            "\"adoptedValues\":そこから読んだ値の数、読み込めない写真があれば "
            "\"photoElements\":PHOTO.XMLの写真情報の数を加える",
        .run = [arguments] { return Run(*arguments); }};
}
