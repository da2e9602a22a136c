#pragma once

#include "platform/controls/WenDialog.h"
#include "platform/text/Text.h"

#include <QElapsedTimer>
#include <QTimer>

#include <atomic>
#include <chrono>
#include <functional>

class QLabel;
class QProgressBar;
class QPushButton;
class WaitMovie;

/// A small window with a moving picture over a work that the user waits for. The other windows take
/// no input meanwhile.
class TOVI_EXPORT GaluWaitMovieDlg : public WenDialog
{
    Q_OBJECT

public:
    /// How long a work lasts that nobody is told of.
    static constexpr std::chrono::milliseconds delay{400};

    GaluWaitMovieDlg();

    /// Chooses the window \p parent over which this one stands; null: none.
    void Create(QWidget* parent);
    /// Chooses the picture: 1 for copying, 3 for deleting, any other for work in general.
    void Animation(int number);
    /// Whether there is a button キャンセル, as there is at first.
    void SetEnableCancel(bool enable);
    /// Shows \p text, and a bar at \p pos percent unless that is negative.
    void Message(const CString& text, int pos = -1);
    /// True once after the user has cancelled. May be asked from the thread of Run's work.
    bool GetCancel();

    /// From now on the window comes up if the work still lasts after delay: at the next Message, or
    /// by itself where the work lets events be handled. A short work shows nothing.
    void Start();
    void End();

    /// Starts, does \p work beside, so that the picture moves and the window answers, and ends.
    /// Returns when the work is done; what it throws is thrown here. The work touches no window and
    /// nothing that a timer or another thread could touch meanwhile. No input is handled before
    /// the window is up.
    void Run(const std::function<void()>& work);

protected:
    /// Enter does nothing.
    void OnOK() override;
    void OnCancel() override;

private:
    void Appear();
    void Repaint();

    WaitMovie* movie;
    QLabel* message;
    QProgressBar* bar;
    QPushButton* cancelButton;
    std::atomic<bool> cancelled = false;
    QElapsedTimer started;
    QTimer appearance;
};
