#include "hosts/cli/Commands.h"
#include "hosts/cli/Conditions.h"
#include "hosts/cli/Json.h"

#include <iostream>

namespace
{
struct Arguments
{
    DeliveryArguments delivery;
    ConditionArguments conditions;
};

int Run(const Arguments& arguments)
{
    const OpenedDelivery delivery =
        OpenDelivery(arguments.delivery, arguments.conditions.choice.type);
    if (!delivery.IsLoaded()) return ExitFailed;
    ToviData& document = *delivery.document;
    const int status = MakeCurrentArray(document, arguments.conditions);
    if (status != ExitDone) return status;
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
    CLI::App* command =
        app.add_subcommand("select", "分類や条件で写真を選び、その番号を表示の順に表示する");
    command->group("コマンド");
    AddDeliveryArguments(*command, arguments.delivery);
    AddConditionOptions(*command, arguments.conditions);
    command->footer("出力: {\"path\",\"current\":[写真の番号],\"selectedPhoto\"}（選択なしは -1）");
    command->callback([&status] { status = Run(arguments); });
}
