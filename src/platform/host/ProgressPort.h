#pragma once

#include "platform/text/Text.h"

/// The window of a long work, as far as the work's progress needs one: it shows what it is given
/// and decides nothing (see ToviProgressDlg). It opens hidden; its end takes it off the screen.
class TOVI_EXPORT ProgressPort
{
public:
    virtual ~ProgressPort() = default;

    /// False once the window has gone, which can happen in any Pump(). The calls that change what
    /// it shows are made only while it is there.
    virtual bool IsWindow() const = 0;
    /// There is a window over which this one stands, and it hasn't gone.
    virtual bool HasOwner() const = 0;
    /// Lets the user work in the owner or not. The progress window itself stays enabled. Called
    /// only while HasOwner().
    virtual void EnableOwner(bool enable) = 0;

    /// Without Cancel the button is hidden and the window ends above it. Called before Show().
    virtual void SetCancelEnabled(bool enable) = 0;
    virtual void SetCaption(const CString& text) = 0;
    virtual void SetRange(int lower, int upper) = 0;
    /// \p pos lies within the range.
    virtual void SetBar(int pos) = 0;
    virtual void SetMessage(const CString& text) = 0;
    /// The text beside the bar, "100%" before the first call.
    virtual void SetPercent(const CString& text) = 0;
    /// Brings the window up without taking the focus.
    virtual void Show() = 0;

    /// Handles the events that wait, with those of all other windows. When the program is asked to
    /// quit, the request is put back for the main loop and the other events stay where they are.
    /// True when Cancel or the close box was chosen since the last call.
    virtual bool Pump() = 0;
};
