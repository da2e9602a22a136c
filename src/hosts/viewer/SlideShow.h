#pragma once

#include <QMainWindow>
#include <QPointer>

class QToolBar;
class ToviMpiPanel;

/// Slide mode: the main window fills the screen with one photograph at a time. The arrow keys and
/// the space bar turn to the next one, Esc ends it.
class SlideShow : public QObject
{
    Q_OBJECT

public:
    SlideShow(QMainWindow* mainWindow, ToviMpiPanel* photoPanel);

    bool IsOn() const { return isOn; }
    void Begin();
    void End();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool OnKey(int key);
    void Step(int by);

    QMainWindow* frame;
    ToviMpiPanel* panel;
    /// What was on show beside the photographs, and the state of the window.
    QList<QPointer<QWidget>> hidden;
    Qt::WindowStates before;
    bool isOn = false;
};
