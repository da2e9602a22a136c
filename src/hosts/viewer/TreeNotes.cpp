#include "hosts/viewer/TreeNotes.h"

#include "hosts/viewer/FrameState.h"
#include "windows/trees/ToviFolderTreePanel.h"

#include <QAction>

namespace
{
constexpr const char* entry = "TreeNotes";
constexpr const char* off = "Off";
} // namespace

QAction* MakeTreeNotesAction(QObject* parent, ToviFolderTreePanel& panel)
{
    auto* const action = new QAction(QStringLiteral("分類の計と未検査(&O)"), parent);
    action->setCheckable(true);
    action->setChecked(FrameState::ReadBytes(entry) != off);
    panel.ShowTallies(action->isChecked());
    QObject::connect(action, &QAction::toggled, &panel, [&panel](bool on) {
        panel.ShowTallies(on);
        FrameState::WriteBytes(entry, on ? QByteArray() : QByteArray(off));
    });
    return action;
}
