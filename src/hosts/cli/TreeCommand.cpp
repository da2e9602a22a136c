#include "hosts/cli/Commands.h"
#include "hosts/cli/Json.h"

#include <iostream>

namespace
{
struct Arguments
{
    DeliveryArguments delivery;
    TreeTypeArgument type;
};

Json ToJson(const ToviNode& node)
{
    Json json = {{"title", node.Title()}, {"indexes", Json::array()}, {"children", Json::array()}};
    for (const int index : node.GetIndexes()) json["indexes"].push_back(index);
    for (const ToviNode* child : node.Items()) json["children"].push_back(ToJson(*child));
    return json;
}

int Run(const Arguments& arguments)
{
    const OpenedDelivery delivery = OpenDelivery(arguments.delivery, arguments.type);
    if (!delivery.document) return ExitFailed;
    std::cout << ToText(ToJson(*delivery.document)) << '\n';
    return delivery.IsLoaded() ? ExitDone : ExitFailed;
}
} // namespace

void AddTreeCommand(CLI::App& app, int& status)
{
    static Arguments arguments;
    CLI::App* command = app.add_subcommand("tree", "分類の木を表示する");
    command->group("コマンド");
    AddDeliveryArguments(*command, arguments.delivery);
    AddTreeTypeOption(*command, arguments.type);
    command->footer("出力: {\"title\",\"indexes\":[写真の番号],\"children\":[...]}");
    command->callback([&status] { status = Run(arguments); });
}
