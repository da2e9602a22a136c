#include "hosts/cli/Commands.h"
#include "hosts/cli/Conditions.h"
#include "hosts/cli/Records.h"

#include "platform/HostServices.h"
#include "reports/ContactSheet.h"

namespace
{
struct Arguments
{
    DeliveryArguments delivery;
    std::string output;
    ConditionArguments conditions;
    int columns = 5;
};

int Run(const Arguments& arguments)
{
    const OpenedDelivery delivery =
        OpenDelivery(arguments.delivery, arguments.conditions.choice.type);
    if (!delivery.IsLoaded()) return ExitFailed;
    if (RefuseInDelivery(arguments.output, delivery)) return ExitWrongUsage;
    ToviData& document = *delivery.document;
    const int status = MakeCurrentArray(document, arguments.conditions);
    if (status != ExitDone) return status;
    UserInterface& user = *GetHostServices().userInterface;
    const int total = document.GetCurrentPhotoCount();
    const LumImage sheet =
        MakeContactSheet(document, arguments.columns, [&user, total](int position) {
            user.ShowProgress(Format("一覧の作成　%d / %d枚", position + 1, total));
        });
    user.ShowProgress("");
    if (!sheet.IsValid()) {
        Complain(Format("%d枚の写真は1枚の一覧に入りません。--node で分類を選ぶか、--columns "
                        "を変えてください。",
                        total));
        return ExitWrongUsage;
    }
    if (!sheet.Save(arguments.output.c_str(), LumPng, 0)) {
        Complain(arguments.output +
                 " に書き込めません。フォルダの場所、書き込みの権限と空き容量を確かめてください。");
        return ExitFailed;
    }
    return ExitDone;
}
} // namespace

void AddSheetCommand(CLI::App& app, int& status)
{
    static Arguments arguments;
    CLI::App* command =
        app.add_subcommand("sheet", "選んだ分類の写真を縮小して並べた一覧（PNG）を作る");
    command->group("コマンド");
    AddDeliveryArguments(*command, arguments.delivery);
    command->add_option("OUT", arguments.output, "作るPNGファイル。納品データの中には作れない")
        ->required()
        ->option_text("（必須）");
    AddConditionOptions(*command, arguments.conditions);
    command->add_option("--columns", arguments.columns, "横に並べる枚数（1～100、既定は5）")
        ->check(CLI::Range(1, 100))
        ->option_text("N");
    command->callback([&status] { status = Run(arguments); });
}
