#include "hosts/cli/Commands.h"
#include "hosts/cli/Delivery.h"
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
    Json indexes = Json::Array();
    for (const int index : node.GetIndexes()) indexes.Add(index);
    Json children = Json::Array();
    for (const ToviNode* child : node.Items()) children.Add(ToJson(*child));
    return Json::Object({{"title", node.Title()}, {"indexes", indexes}, {"children", children}});
}

int Run(const Arguments& arguments)
{
    const OpenedDelivery delivery = OpenDelivery(arguments.delivery, arguments.type);
    if (!delivery.document) return ExitFailed;
    std::cout << ToText(ToJson(*delivery.document)) << '\n';
    return delivery.IsLoaded() ? ExitDone : ExitFailed;
}
} // namespace

Command TreeCommand()
{
    const auto arguments = std::make_shared<Arguments>();
    return {.name = "tree",
            .help = "分類の木を表示する",
            .options =
                Joined({DeliveryOptions(arguments->delivery), {TreeTypeOption(arguments->type)}}),
            .footer = "出力: {\"title\",\"indexes\":[写真の番号],\"children\":[...]}",
            .run = [arguments] { return Run(*arguments); }};
}
