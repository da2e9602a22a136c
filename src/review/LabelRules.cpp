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

CString LabelRules::KeptComment(const CString& text)
{
    return IsBlank(text) ? CString() : text;
}

void LabelRules::EditComment(ToviPhoto& photo, const CString& text)
{
    photo.SetComment(KeptComment(text));
    if (photo.GetComment().empty()) {
        photo.RemoveLabel(LabelComment);
    } else {
        photo.PasteLabel(LabelComment);
    }
}
