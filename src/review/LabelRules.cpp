#include "review/LabelRules.h"

namespace
{
bool IsBlank(const CString& text)
{
    return ReplaceAll(ReplaceAll(text, " ", ""), "　", "").empty();
}
} // namespace

bool LabelRules::Paste(ToviPhoto& photo, unsigned int slot)
{
    if (slot == LabelComment && IsBlank(photo.GetComment())) return false;
    if (slot == LabelOk) photo.CorrectAllNotCheck();
    if (slot == LabelNg1 || slot == LabelNg2 || slot == LabelNg3) photo.RemoveLabel(LabelOk);
    photo.PasteLabel(slot);
    return photo.IsLabelPasted(slot);
}

void LabelRules::Remove(ToviPhoto& photo, unsigned int slot)
{
    if (slot == LabelComment) photo.SetComment("");
    photo.RemoveLabel(slot);
}

void LabelRules::EditComment(ToviPhoto& photo, const CString& text)
{
    const bool blank = IsBlank(text);
    photo.SetComment(blank ? "" : text);
    if (blank) {
        photo.RemoveLabel(LabelComment);
    } else {
        photo.PasteLabel(LabelComment);
    }
}
