#include "hosts/cli/Commands.h"
#include "hosts/cli/Conditions.h"
#include "hosts/cli/OutputFile.h"
#include "hosts/cli/Records.h"

#include "platform/files/MibFile.h"
#include "platform/host/HostServices.h"
#include "platform/host/MachineLacks.h"
#include "reports/ContactSheet.h"

#include <algorithm>

namespace
{
struct Arguments
{
    DeliveryArguments delivery;
    std::string output;
    ConditionArguments conditions;
    int columns = 5;
};

constexpr unsigned bestQuality = 2;

struct Kind
{
    const char* ending;
    LumImageType type;
};

constexpr Kind kinds[] = {{".png", LumPng}, {".jpg", LumJpeg}, {".jpeg", LumJpeg}};

/// The kind that the name of the sheet calls for, PNG without an ending; nothing for an unknown
/// one.
std::optional<LumImageType> TypeOf(const CString& path)
{
    const CString ending = MibGetExt(path);
    if (path == standardOutputName || ending.empty()) return LumPng;
    const auto* found = std::find_if(std::begin(kinds), std::end(kinds), [&](const Kind& known) {
        return EqualNoCase(ending, known.ending);
    });
    return found == std::end(kinds) ? std::nullopt : std::optional(found->type);
}

int Run(const Arguments& arguments)
{
    const std::optional<LumImageType> type = TypeOf(arguments.output);
    if (!type) {
        Complain(arguments.output +
                 " の種類の画像は作れません。.png、.jpg、.jpeg のどれかにしてください。");
        return ExitWrongUsage;
    }
    for (const CString& sentence : WhatMachineLacks()) Complain(sentence);
    const OpenedDelivery delivery =
        OpenDelivery(arguments.delivery, arguments.conditions.choice.type);
    if (!delivery.IsLoaded()) return ExitFailed;
    if (const int wrong = ExamineOutput(arguments.output, delivery); wrong != ExitDone)
        return wrong;
    ToviData& document = *delivery.document;
    const int status = MakeCurrentArray(document, arguments.conditions);
    if (status != ExitDone) return status;
    const int total = document.GetCurrentPhotoCount();
    const ContactSheetLayout layout(total, arguments.columns);
    if (!layout.Fits()) {
        Complain(Format("%d枚の写真は1枚の一覧に入りません。--node で分類を選ぶか、--columns "
                        "を変えてください。",
                        total));
        return ExitWrongUsage;
    }
    UserInterface& user = *GetHostServices().userInterface;
    std::optional<int> notShown;
    const int written = WriteOutput(arguments.output, [&](const ByteSink& sink) {
        LumStripWriter writer(*type, bestQuality, layout.Width(), layout.Height(), sink);
        notShown = WriteContactSheet(document, layout, writer, [&user, total](int position) {
            user.ShowProgress(Format("一覧の作成　%d / %d枚", position + 1, total));
        });
        user.ShowProgress("");
        return notShown.has_value();
    });
    if (written != ExitDone || notShown == 0) return written;
    Complain(Format("%d枚の写真を表示できません。ファイルがないか、壊れています。一覧では「表示でき"
                    "ません」になっています。",
                    *notShown));
    return ExitFailed;
}
} // namespace

Command SheetCommand()
{
    const auto arguments = std::make_shared<Arguments>();
    return {.name = "sheet",
            .help = "選んだ分類の写真を縮小して並べた一覧の画像を作る",
            .options = Joined({DeliveryOptions(arguments->delivery),
                               {{.name = "OUT",
                                 .help = "作るファイル。種類は .png（既定）、.jpg から。- "
                                         "は標準出力（PNG）。納品データの中には作れない",
                                 .target = &arguments->output,
                                 .need = Need::Required}},
                               ConditionOptions(arguments->conditions),
                               {{.name = "--columns",
                                 .help = "横に並べる枚数（1～100、既定は5）",
                                 .target = &arguments->columns,
                                 .valueName = "N",
                                 .accepted = Between{1, 100}}}}),
            .run = [arguments] { return Run(*arguments); }};
}
