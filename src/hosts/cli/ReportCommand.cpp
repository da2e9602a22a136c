#include "hosts/cli/Commands.h"
#include "hosts/cli/Conditions.h"
#include "hosts/cli/OutputFile.h"
#include "hosts/cli/Records.h"

#include "inspection/RecordProblems.h"
#include "platform/files/AtomicFile.h"
#include "platform/files/MibFile.h"
#include "reports/CheckStatusOutcome.h"
#include "reports/CheckStatusPages.h"
#include "work/WorkFolder.h"

#include <algorithm>
#include <iostream>

namespace
{
struct Arguments
{
    DeliveryArguments delivery;
    std::string output;
    ConditionArguments conditions;
};

constexpr const char* usualEnding = ".xls";
constexpr const char* endings[] = {usualEnding, ".xlsx", ".ods", ".pdf"};

/// The exit status that the name of the report calls for; what isn't ExitDone was told.
int Examine(const CString& path)
{
    const CString ending = MibGetExt(path);
    const bool known = std::any_of(std::begin(endings), std::end(endings),
                                   [&](const char* each) { return EqualNoCase(ending, each); });
    if (!known) {
        Complain(path + " の種類が分かりません。.xls、.xlsx、.ods、.pdf のどれかにしてください。");
        return ExitWrongUsage;
    }
    if (MibIsFolderExist(FolderOfFile(path))) return ExitDone;
    Complain(WhyNotWritten(path, WriteFailure::NoFolder));
    return ExitFailed;
}

CString CauseOf(CheckStatusOutcome outcome, const CString& path)
{
    switch (outcome) {
    case CheckStatusOutcome::NotStarted:
        return "LibreOffice Calc をインストールしてください。";
    case CheckStatusOutcome::NoForm:
        return MibProgramPath() + "CHKPHOTO.XLS "
                                  "がありません。プログラムをインストールし直してください。";
    case CheckStatusOutcome::NoWorkFolder:
        return "作業フォルダ " + SuiteFolder() +
               " を作れないか、空き容量が64MBありません。書き込み"
               "の権限と空き容量を確かめてください。";
    case CheckStatusOutcome::OutputOpen:
        return path + " はほかのプログラムで開かれています。閉じてからやり直してください。";
    case CheckStatusOutcome::OutputReadOnly:
    case CheckStatusOutcome::NotWritten:
        return WhyNotReplaced(path);
    case CheckStatusOutcome::TooManyPhotos:
        return "写真が1枚のシートに入りません。条件で減らすか、.xlsx か .ods にしてください。";
    case CheckStatusOutcome::ApplicationFailed:
        return "LibreOffice が途中で終了したか、処理できませんでした。やり直してください。";
    case CheckStatusOutcome::NoSpace:
        return WhyNotWritten(path, WriteFailure::NoSpace);
    case CheckStatusOutcome::InDelivery:
        return WhyNotWritten(path, WriteFailure::InDelivery);
    case CheckStatusOutcome::Written:
    case CheckStatusOutcome::Cancelled:
        break;
    }
    return {};
}

int Write(ToviData& document, const CString& path)
{
    const CheckStatusOutcome outcome = document.FileOutCheckStatus("検査結果", path);
    if (outcome != CheckStatusOutcome::Written) {
        Complain(MessageOf(outcome) + CauseOf(outcome, path));
        return outcome == CheckStatusOutcome::Cancelled ? ExitInterrupted : ExitFailed;
    }
    const int photos = document.GetCurrentPhotoCount();
    const Json report =
        Json::Object({{"file", path}, {"photos", photos}, {"pages", PageSizes(photos).GetSize()}});
    std::cout << ToText(report) << '\n';
    return ExitDone;
}

int Run(const Arguments& arguments)
{
    CString path = arguments.output;
    if (path == standardOutputName) {
        Complain("検査結果の一覧は標準出力には書けません。ファイルの名前を指定してください。");
        return ExitWrongUsage;
    }
    if (MibGetExt(path).empty()) path += usualEnding;
    if (const int wrong = Examine(path); wrong != ExitDone) return wrong;
    const OpenedDelivery delivery =
        OpenDelivery(arguments.delivery, arguments.conditions.choice.type);
    if (!delivery.IsLoaded()) return ExitFailed;
    if (RefuseInDelivery(path, delivery)) return ExitWrongUsage;
    ToviData& document = *delivery.document;
    const int status = MakeCurrentArray(document, arguments.conditions);
    return status == ExitDone ? Write(document, path) : status;
}
} // namespace

Command ReportCommand()
{
    const auto arguments = std::make_shared<Arguments>();
    return {.name = "report",
            .help = "検査結果の一覧をExcelのファイルに書き出す",
            .options = Joined({DeliveryOptions(arguments->delivery),
                               {{.name = "OUT",
                                 .help = "作るファイル。種類は .xls（既定）、.xlsx、.ods、.pdf "
                                         "から。納品データの中には作れない",
                                 .target = &arguments->output,
                                 .need = Need::Required}},
                               ConditionOptions(arguments->conditions)}),
            .footer = "出力: {\"file\",\"photos\":写真の枚数,\"pages\":ページ数}\n"
                      "LibreOffice Calc が必要。Ctrl+Cで中断すると、前のファイルはそのまま残る",
            .run = [arguments] { return Run(*arguments); }};
}
