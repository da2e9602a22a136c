#include "hosts/cli/Commands.h"
#include "hosts/cli/Conditions.h"
#include "hosts/cli/Json.h"
#include "hosts/cli/Records.h"

#include "platform/files/MibFile.h"
#include "reports/PhotoExport.h"

#include <algorithm>
#include <iostream>

namespace
{
struct Arguments
{
    DeliveryArguments delivery;
    std::string folder;
    ConditionArguments conditions;
};

struct Reason
{
    CopyFailure failure;
    const char* text;
};

constexpr Reason reasons[] = {
    {CopyFailure::NoSource, "元のファイルを読めない"},
    {CopyFailure::NoSpace, "空き容量がない"},
    {CopyFailure::NotWritable, "書き込めない"},
    {CopyFailure::NotAFile, "同じ名前のフォルダや装置がある"},
    {CopyFailure::NoFolder, "保存先のフォルダがない"},
    {CopyFailure::InDelivery, "納品データのフォルダには書き込まない"},
    {CopyFailure::Other, "この名前では保存できない"},
};

const char* ReasonOf(const PhotoExport::Failure& failure)
{
    if (failure.name.empty()) return "写真ファイル名がない";
    const auto* found =
        std::find_if(std::begin(reasons), std::end(reasons),
                     [&failure](const Reason& known) { return known.failure == failure.reason; });
    return found->text;
}

Json SummaryOf(const CString& folder, int photos, const PhotoExport::Outcome& outcome)
{
    Json missing = Json::Array();
    Json failed = Json::Array();
    for (const PhotoExport::Failure& failure : outcome.failures) {
        if (failure.reason == CopyFailure::NoSource) {
            missing.Add(failure.name);
        } else {
            failed.Add(Json::Object(
                {{"name", failure.name}, {"index", failure.index}, {"reason", ReasonOf(failure)}}));
        }
    }
    return Json::Object({{"folder", folder},
                         {"photos", photos},
                         {"copied", outcome.copied},
                         {"bytes", outcome.bytes},
                         {"missing", missing},
                         {"failed", failed},
                         {"cancelled", outcome.cancelled}});
}

int TellOutcome(const PhotoExport::Outcome& outcome)
{
    if (outcome.cancelled) {
        Complain("中断しました。保存先には途中までの写真があります。");
        return ExitInterrupted;
    }
    if (outcome.failures.empty()) return ExitDone;
    Complain(Format("%d枚の写真を保存できませんでした（%s ほか: %s）。",
                    static_cast<int>(outcome.failures.size()),
                    outcome.failures.front().identity.c_str(), ReasonOf(outcome.failures.front())));
    return ExitFailed;
}

int Run(const Arguments& arguments)
{
    const OpenedDelivery delivery =
        OpenDelivery(arguments.delivery, arguments.conditions.choice.type);
    if (!delivery.IsLoaded()) return ExitFailed;
    CString folder = MibAbsolutePath(arguments.folder);
    while (folder.size() > 1 && folder.ends_with('/')) folder.pop_back();
    if (RefuseInDelivery(folder + '/', delivery)) return ExitWrongUsage;
    if (!MibIsFolderExist(folder)) {
        Complain(folder + " というフォルダがありません。保存先のフォルダを作ってから指定してくださ"
                          "い。");
        return ExitFailed;
    }
    ToviData& document = *delivery.document;
    const int status = MakeCurrentArray(document, arguments.conditions);
    if (status != ExitDone) return status;
    PhotoExport photos(document);
    if (!photos.IsFree(folder)) {
        Complain(photos.Conflict() + " がもうあります。写真と同じ名前のファイルのないフォルダを指定"
                                     "してください。");
        return ExitFailed;
    }
    const PhotoExport::Outcome outcome = photos.CopyAll();
    std::cout << ToText(SummaryOf(folder, photos.Count(), outcome)) << '\n';
    return TellOutcome(outcome);
}
} // namespace

Command ExportCommand()
{
    const auto arguments = std::make_shared<Arguments>();
    return {
        .name = "export",
        .help = "選んだ写真のファイルを、そのままフォルダに保存する",
        .options = Joined(
            {DeliveryOptions(arguments->delivery),
             {{.name = "FOLDER",
               .help =
                   "保存先のフォルダ。納品データの中や、同じ名前のファイルがある所には保存しない",
               .target = &arguments->folder,
               .need = Need::Required}},
             ConditionOptions(arguments->conditions)}),
        .footer = "出力: {\"folder\",\"photos\":枚数,\"copied\",\"bytes\",\"missing\":[ファイル名],"
                  "\"failed\":[{\"name\",\"index\",\"reason\"}],\"cancelled\"}",
        .run = [arguments] { return Run(*arguments); }};
}
