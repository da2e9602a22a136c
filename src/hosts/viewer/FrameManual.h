#pragma once

#include "hosts/viewer/FrameActions.h"

#include <QObject>

class QMainWindow;

/// The manual, opened in the browser at what is said of the window that has the focus. Its key
/// counts in every window, in dialogs too.
class FrameManual : public QObject
{
    Q_OBJECT

public:
    FrameManual(QMainWindow* theFrame, const FrameActions& actions);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void ShowFor(const QWidget* focused);

    QMainWindow* frame;
};
