#include "hosts/cli/Commands.h"
#include "hosts/cli/PhotoChoice.h"
#include "hosts/cli/Records.h"
#include "hosts/cli/Usage.h"
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
    std::string comment;
    bool hasComment = false;
    bool clear = false;
};

/// False when a label can't be pasted.
bool Change(PhotoReview& review, const Arguments& arguments)
{
    if (arguments.clear) LabelRules::RemoveAllLabel(review);
    if (arguments.hasComment) LabelRules::EditComment(review, arguments.comment);
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
} // namespace

void AddLabelCommand(CLI::App& app, int& status)
{
    static Arguments arguments;
    CLI::App* command =
        app.add_subcommand("label", "写真に付箋やコメントを付け、検査状況の記録に保存する");
    command->group("コマンド");
    AddDeliveryArguments(*command, arguments.delivery);
    AddRecordOption(*command, arguments.record)->required();
    AddAtOption(*command, arguments.choice);
    AddTreeTypeOption(*command, arguments.choice.type);
    AddNodeOption(*command, arguments.choice.nodes);
    for (const auto& [name, slots, text] : {std::tuple{"--paste", &arguments.paste, "貼る付箋"},
                                            {"--remove", &arguments.remove, "はがす付箋"}}) {
        command
            ->add_option(name, *slots,
                         CString(text) +
                             "（0 OK、1～3 NG1～NG3、4 コメント、5 任意）。繰り返してよい")
            ->check(Between(0, labelCount - 1))
            ->allow_extra_args(false)
            ->option_text("N ...");
    }
    CLI::Option* comment =
        command->add_option("--comment", arguments.comment, "コメント。空にすると消す")
            ->option_text("TEXT");
    command->add_flag("--clear", arguments.clear, "先にすべての付箋とコメントを消す");
    command->footer("記録ファイルがあれば読み込んでから変え、同じファイルに保存する。ほかの"
                    "プログラムが使っている間は30秒まで待つ。OKとNGはどちら"
                    "かだけが残り、"
                    "コメントの付箋はコメントに従う\n"
                    "出力: 変えた写真の [{\"index\",\"labels\":[付箋],\"comment\"}]");
    command->callback([&status, comment] {
        arguments.hasComment = comment->count() > 0;
        status = Run(arguments);
    });
}
