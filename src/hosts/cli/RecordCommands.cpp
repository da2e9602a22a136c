#include "hosts/cli/Commands.h"
#include "hosts/cli/OutputFile.h"
#include "hosts/cli/Records.h"
#include "photos/ToviPhoto.h"

#include "platform/files/MibFile.h"
#include "platform/files/RunFolder.h"
#include "platform/files/UserFolders.h"
#include "platform/files/WriteFailure.h"

namespace
{
struct Arguments
{
    DeliveryArguments delivery;
    RecordArguments record;
    std::string output;
};

constexpr std::size_t largestRecord = std::size_t{1} << 30;

int Show(const Arguments& arguments)
{
    const OpenedDelivery delivery = OpenDelivery(arguments.delivery);
    if (!delivery.IsLoaded() || !LoadRecord(*delivery.document, arguments.record))
        return ExitFailed;
    JsonArrayWriter output;
    for (int index = 0; index < delivery.document->GetTotalCountPhoto(); ++index) {
        output.Add(ReviewOf(*delivery.document->GetPhotoActualPhotoArray(index), index));
    }
    return ExitDone;
}

/// By way of a file: the record is made whole or not at all.
int ReturnToStandardOutput(ToviData& document, const RecordArguments& record)
{
    if (!LoadRecord(document, record)) return ExitFailed;
    const CString shared = CurrentUserFolders().temporary;
    const CString temporary = PrivateTemporaryFolder(shared);
    const RunFolder folder(temporary.empty() ? "" : temporary + "/return");
    if (folder.Path().empty()) {
        Complain(WhyNotWritten(shared, WriteFailure::Other));
        return ExitFailed;
    }
    const CString file = folder.Path() + "/record.xml";
    int reason = noReason;
    const bool saved = document.ReturnExam(file.c_str(), &reason);
    if (saved) WriteOutput(standardOutputName, MibReadFile(file, largestRecord).value_or(""));
    return TellSaved(saved, file, reason);
}

int Return(const Arguments& arguments)
{
    const OpenedDelivery delivery = OpenDelivery(arguments.delivery);
    if (!delivery.IsLoaded()) return ExitFailed;
    if (arguments.output == standardOutputName) {
        return ReturnToStandardOutput(*delivery.document, arguments.record);
    }
    // Also one that is under inspection may be written over, the loaded one for instance.
    RecordHold hold(arguments.output);
    const CString& file = hold.Target();
    if (RefuseInDelivery(arguments.output, delivery) || RefuseInDelivery(file, delivery)) {
        return ExitWrongUsage;
    }
    if (const int taken = Take(hold, arguments.output); taken != ExitDone) return taken;
    if (!LoadRecord(*delivery.document, arguments.record)) return ExitFailed;
    int reason = noReason;
    const bool saved = delivery.document->ReturnExam(file.c_str(), &reason);
    return TellSaved(saved, arguments.output, reason);
}
} // namespace

void AddRecordCommand(CLI::App& app, int& status)
{
    static Arguments arguments;
    CLI::App* command = app.add_subcommand("record", "検査状況の記録ファイルの内容を表示する");
    command->group("コマンド");
    AddDeliveryArguments(*command, arguments.delivery);
    command->add_option("FILE", arguments.record.path, "検査状況の記録ファイル")
        ->required()
        ->option_text("（必須）");
    AddForceOption(*command, arguments.record);
    command->footer("出力: [{\"index\",\"labels\":[付箋],\"comment\"}]\n"
                    "付箋: 0 OK、1～3 NG1～NG3、4 コメント、5 任意");
    command->callback([&status] { status = Show(arguments); });
}

void AddReturnCommand(CLI::App& app, int& status)
{
    static Arguments arguments;
    CLI::App* command =
        app.add_subcommand("return", "写真ファイルのパスを加えた検査状況の記録を作る");
    command->group("コマンド");
    AddDeliveryArguments(*command, arguments.delivery);
    AddRecordOption(*command, arguments.record)->required();
    command
        ->add_option("OUT", arguments.output,
                     "作るファイル。- は標準出力。納品データの中には作れない")
        ->required()
        ->option_text("（必須）");
    command->callback([&status] { status = Return(arguments); });
}
