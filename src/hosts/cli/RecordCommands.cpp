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

Command RecordCommand()
{
    const auto arguments = std::make_shared<Arguments>();
    return {.name = "record",
            .help = "検査状況の記録ファイルの内容を表示する",
            .options = Joined({DeliveryOptions(arguments->delivery),
                               {{.name = "FILE",
                                 .help = "検査状況の記録ファイル",
                                 .target = &arguments->record.path,
                                 .need = Need::Required},
                                ForceOption(arguments->record)}}),
            .footer = "出力: [{\"index\",\"labels\":[付箋],\"comment\"}]\n"
                      "付箋: 0 OK、1～3 NG1～NG3、4 コメント、5 任意",
            .run = [arguments] { return Show(*arguments); }};
}

Command ReturnCommand()
{
    const auto arguments = std::make_shared<Arguments>();
    return {.name = "return",
            .help = "写真ファイルのパスを加えた検査状況の記録を作る",
            .options = Joined({DeliveryOptions(arguments->delivery),
                               RecordOptions(arguments->record, Need::Required),
                               {{.name = "OUT",
                                 .help = "作るファイル。- は標準出力。納品データの中には作れない",
                                 .target = &arguments->output,
                                 .need = Need::Required}}}),
            .run = [arguments] { return Return(*arguments); }};
}
