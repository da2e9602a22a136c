#pragma once

#include "platform/host/CWnd.h"
#include "platform/host/ProgressPort.h"

#include <memory>

/// The progress window over a loop on the thread of the windows. It keeps the program alive by
/// handling waiting events whenever the loop reports progress, and disables its owner meanwhile,
/// which is all that keeps the user from starting a second command inside the first.
///
/// It lives on the loop's stack and serves one loop: SetCancelBtnEnabled, Create, SetCaption,
/// SetRange, SetStep, SetPos, Show; the loop; the end. What is seen is the host's ProgressPort.
/// Where there is none, or once it has gone, everything works on without a display.
class TOVI_EXPORT ToviProgressDlg
{
public:
    /// With \p throttled only about every hundredth part of the range updates the window and
    /// notices a cancel. \p parent may be null, as in Create().
    explicit ToviProgressDlg(bool throttled, CWnd* parent = nullptr);
    ToviProgressDlg(const ToviProgressDlg&) = delete;
    ToviProgressDlg& operator=(const ToviProgressDlg&) = delete;
    virtual ~ToviProgressDlg();

    /// Opens the window, still hidden, over \p parent, or over that of the constructor when it is
    /// null, and disables the owner. False when there is no display.
    bool Create(CWnd* parent);
    /// Opens the window as every loop over photographs has it: the application's name as its title,
    /// a range from 0 to \p count, at 0, and shown.
    void Begin(int count);
    /// Shows the window without giving it the focus.
    void Show();
    /// Sets the title; null means the application's name.
    void SetCaption(const char* text);
    /// True at first. To be called before Create().
    void SetCancelBtnEnabled(bool enabled) { cancelEnabled = enabled; }
    /// Starts anew at \p lower. A range of less than 200 positions turns throttling off for good.
    void SetRange(int lower, int upper);
    /// Sets by how much StepIt() moves while not throttled, 1 at first; returns the step before.
    int SetStep(int newStep);
    /// Reports a position and returns that of the bar before.
    int SetPos(int pos);
    /// Reports the next position and returns that of the bar before.
    int StepIt();
    /// An empty text leaves the message as it is.
    void SetMessage(const CString& text);
    /// The message of a loop over \p count things of which \p done are done: \p text, which
    /// outlives this object, with both behind it. It costs nothing until it is painted.
    void SetMessage(const char* text, int done, int count);
    /// Tells of a cancel once: whoever asked must act on it.
    bool GetCancel();
    /// Enables the owner and takes the window away. False when it had gone already.
    virtual bool DestroyWindow();

private:
    bool IsWindow() const { return window != nullptr && window->IsWindow(); }
    int MoveBar(long long pos);
    void ShowMessage();
    void DisposeOfMessages();
    void EnableParentWindow(bool enable);
    void SetPercent();

    CWnd* constructedParent;
    std::unique_ptr<ProgressPort> window;
    CString message;
    /// What the message will be made of when it is painted; no text for what is one already.
    struct Counted
    {
        const char* text = nullptr;
        int done = 0;
        int count = 0;
    };
    Counted counted;
    CString percent = "100%";
    int lowerEnd = 0;
    int upperEnd = 100;
    int barPosition = 0;
    int step = 1;
    /// Positions between two updates while throttled; 0 before the first SetRange().
    int interval = 0;
    int nextUpdate = 0;
    /// What StepIt() counts while throttled.
    int position = 0;
    bool throttled;
    /// While throttled: GetCancel() may look.
    bool pollPending;
    bool cancelEnabled = true;
    bool cancelled = false;
    bool messagePending = false;
};
