#pragma once

#include "hosts/viewer/FrameActions.h"

#include <QObject>

class QMainWindow;
class ToviMpiPanel;

/// The main window's commands on labels: what they paste and remove at the selected photograph, and
/// whether the selection then goes on to the next one (付けたら次へ).
class FrameLabels : public QObject
{
    Q_OBJECT

public:
    FrameLabels(QMainWindow* frame, FrameActions& theActions, ToviMpiPanel* thePanel);

private:
    void Label(unsigned int label, bool mayStep);

    FrameActions& actions;
    ToviMpiPanel* panel;
};
