#include "hosts/viewer/FrameKeys.h"

#include "hosts/viewer/KeyNotice.h"
#include "platform/host/HostServices.h"
#include "windows/keys/KeySet.h"
#include "windows/keys/KeySheet.h"
#include "windows/page/ToviMpiPanel.h"
#include "windows/setup/KeyChangeDlg.h"

#include <QMainWindow>

namespace
{
constexpr const char* section = "Keys";
constexpr const char* toldEntry = "Told";

/// The keys that the user has chosen.
KeySet ChosenKeys()
{
    KeySet keys;
    if (const ProfileStore* profile = GetHostServices().profile) keys.Load(*profile);
    return keys;
}
} // namespace

FrameKeys::FrameKeys(QMainWindow* theFrame, FrameActions& theActions, ToviMpiPanel* thePanel)
    : QObject(theFrame), frame(theFrame), actions(theActions), panel(thePanel),
      notice(new KeyNotice)
{
    SetCurrentKeys(ChosenKeys());
    actions.ApplyKeys();
    connect(notice, &KeyNotice::OldKeysWanted, this, &FrameKeys::UseOldLabelKeys);
    connect(notice, &KeyNotice::SheetWanted, this, &FrameKeys::ShowSheet);
    connect(actions[FrameCommand::ShowKeys], &QAction::triggered, this, &FrameKeys::ShowSheet);
    connect(actions[FrameCommand::ChangeKeys], &QAction::triggered, this, &FrameKeys::Change);
}

QWidget* FrameKeys::Notice() const
{
    return notice;
}

void FrameKeys::TellOnce()
{
    ProfileStore* const profile = GetHostServices().profile;
    if (profile == nullptr || profile->GetProfileInt(section, toldEntry, 0) != 0) return;
    profile->WriteProfileInt(section, toldEntry, 1);
    notice->Tell();
}

void FrameKeys::UseOldLabelKeys()
{
    KeySet keys = CurrentKeys();
    keys.TakeOldLabelKeys();
    if (ProfileStore* profile = GetHostServices().profile) keys.Save(*profile);
    SetCurrentKeys(std::move(keys));
    Apply();
}

void FrameKeys::Apply()
{
    actions.ApplyKeys();
    panel->ApplyKeys();
    if (sheet) sheet->ShowKeys();
}

void FrameKeys::ShowSheet()
{
    if (!sheet) {
        sheet = new KeySheet(frame);
        connect(sheet, &KeySheet::ChangeWanted, this, &FrameKeys::Change);
    }
    sheet->show();
    sheet->raise();
    sheet->activateWindow();
}

void FrameKeys::Change()
{
    KeyChangeDlg dialog(frame);
    if (dialog.DoModal()) Apply();
}
