#include "hosts/cli/Commands.h"

#include "platform/HostServices.h"
#include "platform/MibFile.h"
#include "reports/ContactSheet.h"

namespace
{
struct Arguments
{
    DeliveryArguments delivery;
    std::string output;
    std::vector<std::string> nodes;
    int type = 0;
    int columns = 5;
};

/// True when the file \p path would stand in the folder of the delivery, where nothing is ever
/// written.
bool IsInDelivery(const CString& path, const CString& photoFolder)
{
    const CString folder =
        path.find('/') == CString::npos ? "." : path.substr(0, path.rfind('/') + 1);
    return MibIsInside(photoFolder, folder);
}

int Run(const Arguments& arguments)
{
    const OpenedDelivery delivery = OpenDelivery(
        arguments.delivery, static_cast<ToviPhotoCtrlVisualSetting::TreeType>(arguments.type));
    if (!delivery.IsLoaded()) return ExitNotOpened;
    if (IsInDelivery(arguments.output, delivery.photoFolder)) {
        Complain("納品データのフォルダには書き込みません。" + arguments.output +
                 " の代わりに別のフォルダを指定してください。");
        return ExitWrongUsage;
    }
    ToviData& document = *delivery.document;
    if (!SelectNode(document, arguments.nodes)) return ExitWrongUsage;
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
        return ExitNotOpened;
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
    AddTreeTypeOption(*command, arguments.type);
    AddNodeOption(*command, arguments.nodes);
    command->add_option("--columns", arguments.columns, "横に並べる枚数（1～100、既定は5）")
        ->check(CLI::Range(1, 100))
        ->option_text("N");
    command->callback([&status] { status = Run(arguments); });
}
