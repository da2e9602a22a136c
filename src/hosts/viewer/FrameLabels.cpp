#include "hosts/viewer/FrameLabels.h"

#include "photos/LabelSlots.h"
#include "platform/host/HostServices.h"
#include "windows/keys/KeyTable.h"
#include "windows/page/ToviMpiPanel.h"

#include <QMainWindow>

namespace
{
constexpr const char* section = "Viewer";
constexpr const char* stepEntry = "StepAfterLabel";
} // namespace

FrameLabels::FrameLabels(QMainWindow* frame, FrameActions& theActions, ToviMpiPanel* thePanel)
    : QObject(frame), actions(theActions), panel(thePanel)
{
    for (unsigned int label = 0; label < labelCount; ++label) {
        const FrameCommand command = LabelCommandOf(label);
        connect(actions[command], &QAction::triggered, this, [this, label] { Label(label, true); });
        connect(actions.WithShift(command), &QAction::triggered, this,
                [this, label] { Label(label, false); });
    }
    for (const QAction* remove :
         {actions[FrameCommand::RemoveLabels], actions.WithShift(FrameCommand::RemoveLabels)}) {
        connect(remove, &QAction::triggered, this, [this] { panel->OnRemoveAllLabel(); });
    }
    QAction* const step = actions[FrameCommand::StepAfterLabel];
    ProfileStore* const profile = GetHostServices().profile;
    step->setChecked(profile != nullptr && profile->GetProfileInt(section, stepEntry, 0) != 0);
    connect(step, &QAction::toggled, this, [](bool on) {
        ProfileStore* const store = GetHostServices().profile;
        if (store != nullptr) store->WriteProfileInt(section, stepEntry, on ? 1 : 0);
    });
}

void FrameLabels::Label(unsigned int label, bool mayStep)
{
    const bool pasted = panel->ToggleLabel(static_cast<int>(label));
    const bool steps = mayStep && actions[FrameCommand::StepAfterLabel]->isChecked();
    if (pasted && steps) panel->OperateNextPhoto();
}
