#include "hosts/viewer/FrameLabels.h"

#include "photos/LabelSlots.h"
#include "platform/host/HostServices.h"
#include "review/SlideMode.h"
#include "windows/comments/CommentEntry.h"
#include "windows/keys/KeyTable.h"
#include "windows/page/ToviMpiPanel.h"

#include <QMainWindow>

namespace
{
constexpr const char* section = "Viewer";
constexpr const char* stepEntry = "StepAfterLabel";
} // namespace

FrameLabels::FrameLabels(QMainWindow* frame, FrameActions& theActions, ToviMpiPanel* thePanel)
    : QObject(frame), actions(theActions), panel(thePanel), entry(new CommentEntry)
{
    for (unsigned int label = 0; label < labelCount; ++label) {
        if (label == LabelComment) continue;
        const FrameCommand command = LabelCommandOf(label);
        connect(actions[command], &QAction::triggered, this, [this, label] { Label(label, true); });
        connect(actions.WithShift(command), &QAction::triggered, this,
                [this, label] { Label(label, false); });
    }
    for (const QAction* remove :
         {actions[FrameCommand::RemoveLabels], actions.WithShift(FrameCommand::RemoveLabels)}) {
        connect(remove, &QAction::triggered, this, [this] { panel->OnRemoveAllLabel(); });
    }
    ConnectComment();
    QAction* const step = actions[FrameCommand::StepAfterLabel];
    ProfileStore* const profile = GetHostServices().profile;
    step->setChecked(profile != nullptr && profile->GetProfileInt(section, stepEntry, 0) != 0);
    connect(step, &QAction::toggled, this, [](bool on) {
        ProfileStore* const store = GetHostServices().profile;
        if (store != nullptr) store->WriteProfileInt(section, stepEntry, on ? 1 : 0);
    });
}

void FrameLabels::ConnectComment()
{
    for (const QAction* write :
         {actions[FrameCommand::LabelComment], actions.WithShift(FrameCommand::LabelComment)}) {
        connect(write, &QAction::triggered, this, &FrameLabels::BeginComment);
    }
    connect(actions[FrameCommand::CommentDialog], &QAction::triggered, this, [this] {
        FinishComment();
        panel->ToggleLabel(LabelComment);
    });
    connect(entry, &CommentEntry::Written, this,
            [this](const CString& text) { panel->SetComment(commented, text); });
    connect(entry, &CommentEntry::Left, this, [this] { panel->setFocus(); });
    connect(panel, &ToviMpiPanel::SelectionChanged, this, &FrameLabels::FollowSelection);
}

QWidget* FrameLabels::CommentStrip() const
{
    return entry;
}

void FrameLabels::FinishComment()
{
    entry->Finish();
}

void FrameLabels::BeginComment()
{
    if (RefuseInSlideMode(SlideModeRefusal::EditComment)) return;
    FinishComment();
    const CommentedPhotos selected = panel->SelectedForComment();
    if (selected.photos.empty() || !panel->GetData()->GetLabelEdits().MayChange()) return;
    commented = selected.photos;
    entry->Begin(selected.words, selected.comment);
    entry->TakeFocus();
}

/// A comment that was begun stays with its photographs.
void FrameLabels::FollowSelection()
{
    if (entry->isHidden() || entry->IsChanged()) return;
    const CommentedPhotos selected = panel->SelectedForComment();
    if (selected.photos == commented) return;
    commented = selected.photos;
    if (commented.empty()) {
        entry->hide();
    } else {
        entry->Begin(selected.words, selected.comment);
    }
}

void FrameLabels::Label(unsigned int label, bool mayStep)
{
    const bool pasted = panel->ToggleLabel(static_cast<int>(label));
    const bool steps = mayStep && actions[FrameCommand::StepAfterLabel]->isChecked();
    if (pasted && steps) panel->OperateNextPhoto();
}
