#include "windows/panel/LabelCommands.h"

#include "photos/ToviPhoto.h"
#include "review/LabelEdits.h"
#include "review/LabelRules.h"
#include "review/SlideMode.h"

void LabelCommands::Paste(int photo, unsigned int label)
{
    if (photo < 0 || label >= labelCount) return;
    if (label == LabelComment) {
        EditComment(photo);
    } else {
        Change(photo, [label](PhotoReview& review) { LabelRules::Paste(review, label); });
    }
}

void LabelCommands::EditComment(int photo)
{
    ToviData* const document = desk.Document();
    if (!document->GetLabelEdits().MayChange()) return;
    const std::optional<CString> answer =
        desk.AskComment(document->GetPhotoActualPhotoArray(photo)->GetComment());
    // Closed meanwhile, and the photograph is gone with it.
    if (!answer || desk.Document() != document) return;
    Change(photo, [&answer](PhotoReview& review) { LabelRules::EditComment(review, *answer); });
}

void LabelCommands::Remove(int photo, unsigned int label)
{
    if (photo < 0 || label >= labelCount) return;
    if (label == LabelComment && RefuseInSlideMode(SlideModeRefusal::EditComment)) return;
    Change(photo, [label](PhotoReview& review) { LabelRules::Remove(review, label); });
}

void LabelCommands::RemoveAll(int photo)
{
    if (photo >= 0) Change(photo, LabelRules::RemoveAllLabel);
}

bool LabelCommands::Toggle(int photo, unsigned int label)
{
    if (photo < 0) return false;
    if (label == LabelComment) {
        if (!RefuseInSlideMode(SlideModeRefusal::EditComment)) Paste(photo, label);
        return false;
    }
    if (desk.Document()->GetPhotoActualPhotoArray(photo)->IsLabelPasted(label)) {
        Remove(photo, label);
        return false;
    }
    Paste(photo, label);
    return true;
}

void LabelCommands::Change(int photo, const LabelEdits::Rule& rule)
{
    ToviData* const document = desk.Document();
    LabelEdits& edits = document->GetLabelEdits();
    const LabelEdit edit = edits.Make(LabelEdit::OnePhoto, {&photo, 1}, rule, window);
    // Whoever heard of it may have closed the document.
    if (edits.Apply(edit) && desk.Document() == document) desk.ShowEdit(edit);
}
