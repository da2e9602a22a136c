#include "hosts/cli/Commands.h"
#include "hosts/cli/Delivery.h"
#include "hosts/cli/Json.h"

#include "delivery/IndexPage.h"
#include "platform/files/MibFile.h"

#include <iostream>

namespace
{
struct Arguments
{
    DeliveryArguments delivery;
    bool html = false;
};

int Report(const CString& path)
{
    std::cout << ToText(Json::Object({{"path", path}})) << '\n';
    return ExitDone;
}

int MakePage(ToviData& document)
{
    const IndexPage page = MakeIndexPage(document);
    if (page.problem.empty()) return Report(page.path);
    Complain(page.problem);
    return ExitFailed;
}

int MakeCopy(ToviData& document)
{
    const ToviItemDef& def = *document.GetItemDef();
    const CString path = document.GetIndexPath();
    CString index;
    CString stylesheet;
    def.GetPathAndName(index, stylesheet);
    if (path.empty()) {
        Complain(WhyNoIndexCopy(def, index, stylesheet));
        return ExitFailed;
    }
    if (const CString problem = WhyNoStylesheet(index, stylesheet); !problem.empty()) {
        Complain(problem);
    } else if (const CString note = NoteOnStylesheet(def, index); !note.empty()) {
        Complain(note);
    }
    return Report(path);
}

int Run(const Arguments& arguments)
{
    const OpenedDelivery delivery = OpenDelivery(arguments.delivery);
    if (!delivery.IsLoaded()) return ExitFailed;
    return arguments.html ? MakePage(*delivery.document) : MakeCopy(*delivery.document);
}
} // namespace

Command IndexCommand()
{
    const auto arguments = std::make_shared<Arguments>();
    return {.name = "index",
            .help = "工事管理ファイルをブラウザで見るための写しを作る",
            .options =
                Joined({DeliveryOptions(arguments->delivery),
                        {{"--html", "XMLの写しの代わりに、どのブラウザでも開けるHTMLのページを作る",
                          &arguments->html}}}),
            .footer = "出力: {\"path\":写しまたはページのパス}\n"
                      "作業フォルダの IndexCopy "
                      "に納品データごとにでき、最後に作ってから30日たつと、次に作るときに消える",
            .run = [arguments] { return Run(*arguments); }};
}
