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
        TellOfChange(*photo);
    }
}

void LabelCommands::EditComment(ToviPhoto& photo)
{
    const ToviData* const document = desk.Document();
    const std::optional<CString> answer = desk.AskComment(photo.GetComment());
    // Closed meanwhile, and the photograph is gone with it.
    if (desk.Document() != document) return;
    if (answer) {
        LabelRules::EditComment(photo, *answer);
        desk.ShowComment(photo);
    }
    TellOfChange(photo);
}

void LabelCommands::Remove(unsigned int label)
{
    ToviPhoto* const photo = desk.Photo();
    if (photo == nullptr || label >= labelCount) return;
    if (label == LabelComment && RefuseInSlideMode(SlideModeRefusal::EditComment)) return;
    LabelRules::Remove(*photo, label);
    if (label == LabelComment) desk.ShowComment(*photo);
    TellOfChange(*photo);
}

void LabelCommands::RemoveAll()
{
    ToviPhoto* const photo = desk.Photo();
    if (photo == nullptr) return;
    photo->RemoveAllLabel();
    desk.ShowComment(*photo);
    TellOfChange(*photo);
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
void LabelCommands::TellOfChange(const ToviPhoto& photo)
{
    ToviData* const document = desk.Document();
    document->SetCheckStatusChanged(true);
    document->UpdatePhotoInf(nullptr);
    desk.ShowLabels(photo);
}
