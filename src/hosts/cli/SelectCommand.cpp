#include "hosts/cli/Commands.h"
#include "hosts/cli/Json.h"

#include <iostream>

namespace
{
struct Arguments
{
    DeliveryArguments delivery;
    int type = 0;
    std::vector<std::string> nodes;
};

int Run(const Arguments& arguments)
{
    const OpenedDelivery delivery = OpenDelivery(
        arguments.delivery, static_cast<ToviPhotoCtrlVisualSetting::TreeType>(arguments.type));
    if (!delivery.IsLoaded()) return ExitNotOpened;
    ToviData& document = *delivery.document;
    if (!SelectNode(document, arguments.nodes)) return ExitWrongUsage;
    Json current = Json::array();
    for (const int index : document.GetCurrentArray()) current.push_back(index);
    const int position = document.GetSelectCurIndex();
    const Json selection = {{"path", document.GetSelectedNode()->GetFullTitlePath("/")},
                            {"current", current},
                            {"selectedPhoto", document.GetIndexPhotoArray(position)}};
    std::cout << ToText(selection) << '\n';
    return ExitDone;
}
} // namespace

void AddSelectCommand(CLI::App& app, int& status)
{
    static Arguments arguments;
    CLI::App* command = app.add_subcommand("select", "分類を選び、表示される写真の番号を表示する");
    command->group("コマンド");
    AddDeliveryArguments(*command, arguments.delivery);
    AddTreeTypeOption(*command, arguments.type);
    AddNodeOption(*command, arguments.nodes);
    command->footer("出力: {\"path\",\"current\":[写真の番号],\"selectedPhoto\"}（選択なしは -1）");
    command->callback([&status] { status = Run(arguments); });
}
