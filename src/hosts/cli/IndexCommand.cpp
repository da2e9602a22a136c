#include "hosts/cli/Commands.h"
#include "hosts/cli/Json.h"

#include "loading/WorkFolder.h"
#include "platform/MibFile.h"

#include <iostream>

namespace
{
CString WhyNotPrepared(const ToviItemDef& def, const CString& index, const CString& stylesheet)
{
    if (index.empty()) {
        return def.GetParentPath() + " に工事管理ファイル INDEX_*.XML（または "
                                     "PHOTO_*.XML）がありません。納品データの上の階層ごと"
                                     "指定しているか確かめてください。";
    }
    if (stylesheet.empty()) {
        return index + " を読めないか、工事・業務のどちらの管理ファイルかを示すDOCTYPEの行が"
                       "ありません。読み取りの権限と納品データの作成元に確かめてください。";
    }
    return index + " の写しを作業フォルダ " + SuiteFolder() +
           "IndexCopy に作れません。書き込みの権限と空き容量を確かめてください。";
}

int Run(const DeliveryArguments& arguments)
{
    const OpenedDelivery delivery = OpenDelivery(arguments);
    if (!delivery.IsLoaded()) return ExitFailed;
    const CString path = delivery.document->GetIndexPath();
    const ToviItemDef& def = *delivery.document->GetItemDef();
    CString index;
    CString stylesheet;
    def.GetPathAndName(index, stylesheet);
    if (path.empty()) {
        Complain(WhyNotPrepared(def, index, stylesheet));
        return ExitFailed;
    }
    if (!MibIsFileExist(stylesheet)) {
        Complain(index + " のDTDに合うスタイルシートがないので、ブラウザではページとして表示されま"
                         "せん。--family の指定とプログラムのインストールを確かめてください。");
    }
    std::cout << ToText({{"path", path}}) << '\n';
    return ExitDone;
}
} // namespace

void AddIndexCommand(CLI::App& app, int& status)
{
    static DeliveryArguments arguments;
    CLI::App* command =
        app.add_subcommand("index", "工事管理ファイルをブラウザで見るための写しを作る");
    command->group("コマンド");
    AddDeliveryArguments(*command, arguments);
    command->footer("出力: {\"path\":写しのパス}\n"
                    "写しは作業フォルダにでき、次の納品データの写しで上書きされる");
    command->callback([&status] { status = Run(arguments); });
}
