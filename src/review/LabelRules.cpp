#include "review/LabelRules.h"

namespace
{
bool IsBlank(const CString& text)
{
    return ReplaceAll(ReplaceAll(text, " ", ""), "　", "").empty();
}

bool IsNG(unsigned int slot)
{
    return slot == LabelNg1 || slot == LabelNg2 || slot == LabelNg3;
}
} // namespace

bool LabelRules::Paste(PhotoReview& review, unsigned int slot)
{
    if (slot >= labelCount || (slot == LabelComment && IsBlank(review.comment))) return false;
    if (slot == LabelOk) CorrectAllOK(review);
    if (IsNG(slot)) review.labels.reset(LabelOk);
    review.labels.set(slot);
    return true;
}

void LabelRules::Remove(PhotoReview& review, unsigned int slot)
{
    if (slot >= labelCount) return;
    if (slot == LabelComment) review.comment.clear();
    review.labels.reset(slot);
}

void LabelRules::EditComment(PhotoReview& review, const CString& text)
{
    review.comment = IsBlank(text) ? CString() : text;
    review.labels.set(LabelComment, !review.comment.empty());
}

void LabelRules::RemoveAllLabel(PhotoReview& review)
{
    review = {};
}

void LabelRules::CorrectAllOK(PhotoReview& review)
{
    CorrectAllNotCheck(review);
    review.labels.set(LabelOk);
}

void LabelRules::CorrectAllNotCheck(PhotoReview& review)
{
    for (const LabelSlot slot : {LabelOk, LabelNg1, LabelNg2, LabelNg3}) review.labels.reset(slot);
}

void LabelRules::CorrectUnlessNG(PhotoReview& review)
{
    const bool hasNG =
        review.labels[LabelNg1] || review.labels[LabelNg2] || review.labels[LabelNg3];
    if (!hasNG) CorrectAllOK(review);
}
