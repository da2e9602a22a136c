#pragma once

#include <QMainWindow>
#include <QPointer>

class QLabel;
class QToolBar;
class ToviMpiPanel;

/// Slide mode: the main window fills the screen with one photograph at a time, on a dark ground.
/// The arrow keys and the space bar turn to the next one, Esc ends it, and so do the buttons of a
/// bar.
class SlideShow : public QObject
{
    Q_OBJECT

public:
    SlideShow(QMainWindow* mainWindow, ToviMpiPanel* photoPanel);

    /// The bar with buttons and the number of the photograph, which shows in slide mode alone.
    QWidget* Bar() const { return bar; }
    bool IsOn() const { return isOn; }
    void Begin();
    void End();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool OnKey(int key);
    void Step(int by);
    void MakeBar();
    void ShowNumber();

    QMainWindow* frame;
    ToviMpiPanel* panel;
    QWidget* bar;
    QLabel* number;
    /// What was on show beside the photographs, and the state of the window.
    QList<QPointer<QWidget>> hidden;
    Qt::WindowStates before;
    bool isOn = false;
};
