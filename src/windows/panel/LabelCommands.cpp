#include "windows/panel/LabelCommands.h"

#include "photos/ToviPhoto.h"
#include "review/LabelEdits.h"
#include "review/LabelRules.h"
#include "review/SlideMode.h"

#include <algorithm>

void LabelCommands::Paste(const Photos& photos, unsigned int label)
{
    if (photos.empty() || label >= labelCount) return;
    if (label == LabelComment) {
        EditComment(photos);
    } else {
        Change(photos, [label](PhotoReview& review) { LabelRules::Paste(review, label); });
    }
}

void LabelCommands::EditComment(const Photos& photos)
{
    ToviData* const document = desk.Document();
    if (!document->GetLabelEdits().MayChange()) return;
    const std::optional<CString> answer = desk.AskComment(photos, CommonComment(photos));
    // Closed meanwhile, and the photographs are gone with it.
    if (answer && desk.Document() == document) SetComment(photos, *answer);
}

void LabelCommands::SetComment(const Photos& photos, const CString& comment)
{
    if (photos.empty()) return;
    Change(photos, [&comment](PhotoReview& review) { LabelRules::EditComment(review, comment); });
}

CString LabelCommands::CommonComment(const Photos& photos) const
{
    const auto commentOf = [this](int photo) {
        return desk.Document()->GetPhotoActualPhotoArray(photo)->GetComment();
    };
    if (photos.empty()) return {};
    const CString first = commentOf(photos.front());
    const bool isCommon =
        std::ranges::all_of(photos, [&](int photo) { return commentOf(photo) == first; });
    return isCommon ? first : CString();
}

void LabelCommands::Remove(const Photos& photos, unsigned int label)
{
    if (photos.empty() || label >= labelCount) return;
    if (label == LabelComment && RefuseInSlideMode(SlideModeRefusal::EditComment)) return;
    Change(photos, [label](PhotoReview& review) { LabelRules::Remove(review, label); });
}

void LabelCommands::RemoveAll(const Photos& photos)
{
    if (!photos.empty()) Change(photos, LabelRules::RemoveAllLabel);
}

bool LabelCommands::Toggle(const Photos& photos, unsigned int label)
{
    if (photos.empty()) return false;
    if (label == LabelComment) {
        if (!RefuseInSlideMode(SlideModeRefusal::EditComment)) Paste(photos, label);
        return false;
    }
    if (HaveAll(photos, label)) {
        Remove(photos, label);
        return false;
    }
    const ToviData* const document = desk.Document();
    Paste(photos, label);
    return desk.Document() == document && HaveAll(photos, label);
}

bool LabelCommands::HaveAll(const Photos& photos, unsigned int label) const
{
    return std::ranges::all_of(photos, [&](int photo) {
        return desk.Document()->GetPhotoActualPhotoArray(photo)->IsLabelPasted(label);
    });
}

void LabelCommands::Change(const Photos& photos, const LabelEdits::Rule& rule)
{
    ToviData* const document = desk.Document();
    LabelEdits& edits = document->GetLabelEdits();
    const LabelEdit::Kind kind = photos.size() == 1 ? LabelEdit::OnePhoto : LabelEdit::Batch;
    const LabelEdit edit = edits.Make(kind, photos, rule, window);
    // Whoever heard of it may have closed the document.
    if (edits.Apply(edit) && desk.Document() == document) desk.ShowEdit(edit);
}
