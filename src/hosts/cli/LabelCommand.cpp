#include "hosts/cli/Commands.h"
#include "hosts/cli/PhotoChoice.h"
#include "hosts/cli/Records.h"
#include "photos/ToviPhoto.h"
#include "review/LabelEdits.h"

#include "review/LabelRules.h"

namespace
{
struct Arguments
{
    DeliveryArguments delivery;
    RecordArguments record;
    PhotoChoice choice;
    std::vector<unsigned int> paste;
    std::vector<unsigned int> remove;
    std::optional<std::string> comment;
    bool clear = false;
};

/// False when a label can't be pasted.
bool Change(PhotoReview& review, const Arguments& arguments)
{
    if (arguments.clear) LabelRules::RemoveAllLabel(review);
    if (arguments.comment) LabelRules::EditComment(review, *arguments.comment);
    for (const unsigned int slot : arguments.remove) LabelRules::Remove(review, slot);
    bool pasted = true;
    for (const unsigned int slot : arguments.paste) pasted &= LabelRules::Paste(review, slot);
    return pasted;
}

int Run(const Arguments& arguments)
{
    if (arguments.choice.IsEmpty()) {
        Complain("写真が指定されていません。--at か --node で指定してください。");
        return ExitWrongUsage;
    }
    Inspection inspection(arguments.record);
    const int opened = Open(inspection, arguments.delivery, arguments.choice.type);
    if (opened != ExitDone) return opened;
    ToviData& document = *inspection.delivery.document;
    ToviPhotoRef chosen;
    if (!FindChosen(document, arguments.choice, chosen)) return ExitWrongUsage;
    bool pasted = true;
    LabelEdits& edits = document.GetLabelEdits();
    const LabelEdit edit = edits.Make(LabelEdit::Batch, chosen, [&](PhotoReview& review) {
        pasted &= Change(review, arguments);
    });
    if (!pasted) {
        Complain("コメントのない写真にコメントの付箋は貼れません。--comment "
                 "でコメントを付けてください。");
        return ExitWrongUsage;
    }
    edits.Apply(edit);
    const int status = Save(inspection);
    if (status != ExitDone) return status;
    JsonArrayWriter output;
    for (const int index : chosen)
        output.Add(ReviewOf(*document.GetPhotoActualPhotoArray(index), index));
    return ExitDone;
}

Option SlotsOption(const char* name, const CString& what, std::vector<unsigned int>& slots)
{
    return {.name = name,
            .help = what + "（0 OK、1～3 NG1～NG3、4 コメント、5 任意）。繰り返してよい",
            .target = &slots,
            .valueName = "N ...",
            .accepted = Between{0, labelCount - 1}};
}
} // namespace

Command LabelCommand()
{
    const auto arguments = std::make_shared<Arguments>();
    return {.name = "label",
            .help = "写真に付箋やコメントを付け、検査状況の記録に保存する",
            .options =
                Joined({DeliveryOptions(arguments->delivery),
                        RecordOptions(arguments->record, Need::Required),
                        {AtOption(arguments->choice),
                         TreeTypeOption(arguments->choice.type),
                         NodeOption(arguments->choice.nodes),
                         SlotsOption("--paste", "貼る付箋", arguments->paste),
                         SlotsOption("--remove", "はがす付箋", arguments->remove),
                         {.name = "--comment",
                          .help = "コメント。空にすると消す",
                          .target = &arguments->comment,
                          .valueName = "TEXT"},
                         {"--clear", "先にすべての付箋とコメントを消す", &arguments->clear}}}),
            .footer = "記録ファイルがあれば読み込んでから変え、同じファイルに保存する。ほかの"
                      "プログラムが使っている間は30秒まで待つ。OKとNGはどちら"
                      "かだけが残り、"
                      "コメントの付箋はコメントに従う\n"
                      "出力: 変えた写真の [{\"index\",\"labels\":[付箋],\"comment\"}]",
            .run = [arguments] { return Run(*arguments); }};
}
