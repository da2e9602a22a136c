#include "panels/LabelCommands.h"

#include "review/LabelRules.h"
#include "review/SlideMode.h"

void LabelCommands::Paste(unsigned int label)
{
    ToviPhoto* const photo = desk.Photo();
    if (photo == nullptr || label >= labelCount) return;
    if (label == LabelComment) {
        EditComment(*photo);
    } else {
        LabelRules::Paste(*photo, label);
        TellOfChange();
    }
}

void LabelCommands::EditComment(ToviPhoto& photo)
{
    const std::optional<CString> answer = desk.AskComment(photo.GetComment());
    if (desk.Photo() != &photo) return;
    if (answer) {
        LabelRules::EditComment(photo, *answer);
        desk.ShowComment(photo.GetComment());
    }
    TellOfChange();
}

void LabelCommands::Remove(unsigned int label)
{
    ToviPhoto* const photo = desk.Photo();
    if (photo == nullptr || label >= labelCount) return;
    if (label == LabelComment && RefuseInSlideMode(SlideModeRefusal::EditComment)) return;
    LabelRules::Remove(*photo, label);
    if (label == LabelComment) desk.ShowComment({});
    TellOfChange();
}

void LabelCommands::RemoveAll()
{
    ToviPhoto* const photo = desk.Photo();
    if (photo == nullptr) return;
    photo->RemoveAllLabel();
    desk.ShowComment({});
    TellOfChange();
}

void LabelCommands::Toggle(unsigned int label)
{
    const ToviPhoto* const photo = desk.Photo();
    if (photo == nullptr) return;
    if (label == LabelComment) {
        if (!RefuseInSlideMode(SlideModeRefusal::EditComment)) Paste(label);
    } else if (photo->IsLabelPasted(label)) {
        Remove(label);
    } else {
        Paste(label);
    }
}

/// The mark first, so that whoever hears of the change finds the document changed.
void LabelCommands::TellOfChange()
{
    ToviData* const document = desk.Document();
    document->SetCheckStatusChanged(true);
    document->UpdatePhotoInf(nullptr);
    desk.ShowLabels();
}
