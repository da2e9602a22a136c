#include "hosts/cli/Commands.h"
#include "hosts/cli/Json.h"
#include "hosts/cli/PhotoChoice.h"

#include "platform/HostServices.h"

#include <algorithm>

namespace
{
struct Arguments
{
    DeliveryArguments delivery;
    PhotoChoice choice;
};

constexpr int photosPerReport = 50;

bool ShowsExif(const ToviItemShowSettings& items)
{
    return std::any_of(items.begin(), items.end(), [](const ToviItemShowSetting& item) {
        return item.bold && item.infoType == InfoExif;
    });
}

int Run(const Arguments& arguments)
{
    const OpenedDelivery delivery = OpenDelivery(arguments.delivery);
    if (!delivery.IsLoaded()) return ExitFailed;
    ToviData& document = *delivery.document;
    ToviPhotoRef chosen;
    if (!FindChosen(document, arguments.choice, chosen)) return ExitWrongUsage;
    const ToviItemShowSettings& items = document.GetVisualSetting().GetItemShowSettings();
    const bool needsExif = ShowsExif(items);
    UserInterface& user = *GetHostServices().userInterface;
    JsonArrayWriter output;
    ToviTextPairArray pairs;
    int done = 0;
    for (const int index : chosen) {
        ToviPhoto& photo = *document.GetPhotoActualPhotoArray(index);
        if (needsExif) photo.LoadExif();
        photo.GetTextPairs(document.GetItemDef(), items, pairs);
        output.Add({{"index", index}, {"pairs", ToJson(pairs)}});
        if (done++ % photosPerReport == 0) {
            user.ShowProgress(Format("写真情報の読み込み　%d / %d枚", done, chosen.GetSize()));
        }
    }
    user.ShowProgress("");
    return ExitDone;
}
} // namespace

void AddPairsCommand(CLI::App& app, int& status)
{
    static Arguments arguments;
    CLI::App* command =
        app.add_subcommand("pairs", "写真情報リストを、設定で表示にした項目だけ表示する");
    command->group("コマンド");
    AddDeliveryArguments(*command, arguments.delivery);
    AddAtOption(*command, arguments.choice);
    command->footer("出力: [{\"index\",\"pairs\":[{\"item\",\"value\"}]}]\n"
                    "項目の表示と非表示は tovi settings DELIVERY --set item:項目名=show で変える");
    command->callback([&status] { status = Run(arguments); });
}
