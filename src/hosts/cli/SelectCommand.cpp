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
    Json current = Json::Array();
    for (const int index : document.GetCurrentArray()) current.Add(index);
    const int position = document.GetSelectCurIndex();
    const Json selection =
        Json::Object({{"path", document.GetSelectedNode()->GetFullTitlePath("/")},
                      {"current", current},
                      {"selectedPhoto", document.GetIndexPhotoArray(position)}});
    std::cout << ToText(selection) << '\n';
    return ExitDone;
}
} // namespace

Command SelectCommand()
{
    const auto arguments = std::make_shared<Arguments>();
    return {
        .name = "select",
        .help = "分類や条件で写真を選び、その番号を表示の順に表示する",
        .options =
            Joined({DeliveryOptions(arguments->delivery), ConditionOptions(arguments->conditions)}),
        .footer = "出力: {\"path\",\"current\":[写真の番号],\"selectedPhoto\"}（選択なしは -1）",
        .run = [arguments] { return Run(*arguments); }};
}
