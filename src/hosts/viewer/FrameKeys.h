#pragma once

#include "hosts/viewer/FrameActions.h"

#include <QObject>
#include <QPointer>

class KeyNotice;
class KeySheet;
class QMainWindow;
class ToviMpiPanel;

/// The keys in the main window: those that the user has chosen, the sheet of all keys, the window
/// that changes them, and the word at the first start that they are others than before.
class FrameKeys : public QObject
{
    Q_OBJECT

public:
    FrameKeys(QMainWindow* theFrame, FrameActions& theActions, ToviMpiPanel* thePanel);

    /// The strip that tells of the keys; hidden until TellOnce.
    QWidget* Notice() const;
    /// Tells which keys paste labels, the first time that the user sees this.
    void TellOnce();

    /// Lets the keys of now count (see CurrentKeys).
    void Apply();

private:
    void UseOldLabelKeys();
    void ShowSheet();
    void Change();

    QMainWindow* frame;
    FrameActions& actions;
    ToviMpiPanel* panel;
    KeyNotice* notice;
    QPointer<KeySheet> sheet;
};
