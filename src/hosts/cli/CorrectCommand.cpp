#include "hosts/cli/Commands.h"
#include "hosts/cli/PhotoChoice.h"
#include "hosts/cli/Records.h"
#include "hosts/cli/UserInPlace.h"

#include "platform/host/TerminalUserInterface.h"
#include "review/LabelProcessSelectDlg.h"

#include <map>

namespace
{
using Action = LabelProcessSelectDlg::Action;

const std::map<std::string, Action> actions = {{"ok", LabelProcessSelectDlg::PasteOk},
                                               {"unchecked", LabelProcessSelectDlg::RemoveChecks},
                                               {"clear", LabelProcessSelectDlg::RemoveAll}};

struct Arguments
{
    DeliveryArguments delivery;
    RecordArguments record;
    std::string action;
    PhotoChoice choice;
};

/// The user who has said on the command line what he wants: he chooses that and confirms it.
class DecidedUser : public TerminalUserInterface
{
public:
    explicit DecidedUser(Action wanted) : action(wanted) {}

    bool Choose(const Choice&, int& option) override
    {
        option = action;
        return true;
    }
    MessageAnswer ShowMessage(const CString& text, const CString& caption, MessageButtons buttons,
                              MessageIcon icon) override
    {
        if (buttons == MessageButtons::OkCancel) return MessageAnswer::Ok;
        return TerminalUserInterface::ShowMessage(text, caption, buttons, icon);
    }

private:
    Action action;
};

void Correct(ToviData& document, Action action)
{
    DecidedUser user(action);
    const UserInPlace inPlace(user);
    document.AllLabelCorrection();
}

int Run(const Arguments& arguments)
{
    Inspection inspection(arguments.record);
    const int opened = Open(inspection, arguments.delivery, arguments.choice.type);
    if (opened != ExitDone) return opened;
    ToviData& document = *inspection.delivery.document;
    if (!SelectNode(document, arguments.choice.nodes)) return ExitWrongUsage;
    Correct(document, actions.at(arguments.action));
    return Save(inspection);
}
} // namespace

Command CorrectCommand()
{
    const auto arguments = std::make_shared<Arguments>();
    return {.name = "correct",
            .help = "選んだ分類の写真の付箋をまとめて訂正する",
            .options = Joined({DeliveryOptions(arguments->delivery),
                               RecordOptions(arguments->record, Need::Required),
                               {{.name = "--action",
                                 .help = "ok（NGのない写真にOK）、unchecked（OK・NGをはがして未検査"
                                         "に）、clear（付箋とコメントをすべて消す）",
                                 .target = &arguments->action,
                                 .valueName = "NAME（必須）",
                                 .need = Need::Required,
                                 .accepted = OneOf{{"ok", "unchecked", "clear"}}},
                                TreeTypeOption(arguments->choice.type),
                                NodeOption(arguments->choice.nodes)}}),
            .run = [arguments] { return Run(*arguments); }};
}
