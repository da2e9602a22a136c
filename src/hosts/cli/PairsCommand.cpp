#include "hosts/cli/Commands.h"
#include "hosts/cli/PhotoDescriptions.h"
#include "photos/ToviPhoto.h"

#include <algorithm>

namespace
{
struct Arguments
{
    DeliveryArguments delivery;
    PhotoChoice choice;
};

bool ShowsExif(const ToviItemShowSettings& items)
{
    return std::any_of(items.begin(), items.end(), [](const ToviItemShowSetting& item) {
        return item.bold && item.infoType == InfoExif;
    });
}

PhotoDescription BeginPairs(ToviData& document)
{
    const ToviItemShowSettings& items = document.GetVisualSetting().GetItemShowSettings();
    return [&document, &items, needsExif = ShowsExif(items)](ToviPhoto& photo, int index) -> Json {
        if (needsExif) photo.LoadExif();
        ToviTextPairArray pairs;
        photo.GetTextPairs(document.GetItemDef(), items, pairs);
        return Json::Object({{"index", index}, {"pairs", ToJson(pairs)}});
    };
}

int Run(const Arguments& arguments)
{
    return DescribePhotos(arguments.delivery, arguments.choice, "写真情報の読み込み", BeginPairs);
}
} // namespace

Command PairsCommand()
{
    const auto arguments = std::make_shared<Arguments>();
    return {.name = "pairs",
            .help = "写真情報リストを、設定で表示にした項目だけ表示する",
            .options =
                Joined({DeliveryOptions(arguments->delivery), {AtOption(arguments->choice)}}),
            .footer = "出力: [{\"index\",\"pairs\":[{\"item\",\"value\"}]}]\n"
                      "項目の表示と非表示は tovi settings DELIVERY --set item:項目名=show で変える",
            .run = [arguments] { return Run(*arguments); }};
}
