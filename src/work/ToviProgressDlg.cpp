#include "work/ToviProgressDlg.h"

#include "platform/host/HostServices.h"

#include <algorithm>
#include <utility>

namespace
{
constexpr int updatesPerRun = 100;
constexpr int smallestInterval = 2;
} // namespace

ToviProgressDlg::ToviProgressDlg(bool isThrottled, CWnd* parent)
    : constructedParent(parent), throttled(isThrottled), pollPending(isThrottled)
{}

ToviProgressDlg::~ToviProgressDlg()
{
    ToviProgressDlg::DestroyWindow();
}

bool ToviProgressDlg::Create(CWnd* parent)
{
    UserInterface* const user = GetHostServices().userInterface;
    if (user == nullptr) return false;
    window = user->CreateProgress(parent != nullptr ? parent : constructedParent);
    if (!IsWindow()) return false;
    EnableParentWindow(false);
    cancelled = false;
    window->SetCancelEnabled(cancelEnabled);
    return true;
}

void ToviProgressDlg::Begin(int count)
{
    Create(nullptr);
    SetCaption(nullptr);
    SetRange(0, count);
    SetStep(1);
    SetPos(0);
    Show();
}

void ToviProgressDlg::Show()
{
    if (IsWindow()) window->Show();
}

void ToviProgressDlg::SetCaption(const char* text)
{
    if (!IsWindow()) return;
    window->SetCaption(text != nullptr ? text : GetHostServices().applicationName);
}

void ToviProgressDlg::SetRange(int lower, int upper)
{
    if (throttled) {
        const long long span = static_cast<long long>(upper) - lower;
        interval = span > updatesPerRun ? static_cast<int>(span / updatesPerRun) : 0;
        throttled = interval >= smallestInterval;
    }
    nextUpdate = lower;
    position = lower;
    lowerEnd = lower;
    upperEnd = std::max(lower, upper);
    barPosition = std::clamp(barPosition, lowerEnd, upperEnd);
    if (IsWindow()) window->SetRange(lowerEnd, upperEnd);
}

int ToviProgressDlg::SetStep(int newStep)
{
    return std::exchange(step, newStep);
}

int ToviProgressDlg::SetPos(int pos)
{
    if (throttled && interval > 0) {
        if (pos < nextUpdate) return barPosition;
        nextUpdate = pos < upperEnd - interval ? pos + interval : upperEnd;
        pollPending = true;
    }
    return MoveBar(pos);
}

int ToviProgressDlg::StepIt()
{
    if (throttled) return SetPos(++position);
    return MoveBar(static_cast<long long>(barPosition) + step);
}

int ToviProgressDlg::MoveBar(long long pos)
{
    if (IsWindow()) DisposeOfMessages();
    const long long within = std::clamp<long long>(pos, lowerEnd, upperEnd);
    const int before = std::exchange(barPosition, static_cast<int>(within));
    // The pump may have seen the window go.
    if (IsWindow()) {
        window->SetBar(barPosition);
        SetPercent();
    }
    return before;
}

void ToviProgressDlg::SetPercent()
{
    const long long span = static_cast<long long>(upperEnd) - lowerEnd;
    const long long done = static_cast<long long>(barPosition) - lowerEnd;
    const CString text = std::to_string(span == 0 ? 0 : done * 100 / span) + "%";
    if (text == percent) return;
    percent = text;
    window->SetPercent(percent);
}

void ToviProgressDlg::SetMessage(const CString& text)
{
    if (text.empty() || text == message || !IsWindow()) return;
    message = text;
    counted = {};
    messagePending = true;
    // A fast loop tells more texts than can be painted: its window gets the last one before a pump.
    if (!throttled) ShowMessage();
}

void ToviProgressDlg::SetMessage(const char* text, int done, int count)
{
    if (window == nullptr) return;
    counted = {text, done, count};
    messagePending = true;
    if (!throttled) ShowMessage();
}

void ToviProgressDlg::ShowMessage()
{
    if (messagePending && counted.text != nullptr) {
        message = Format("%s%d / %d", counted.text, counted.done, counted.count);
    }
    if (messagePending && IsWindow()) window->SetMessage(message);
    messagePending = false;
}

void ToviProgressDlg::DisposeOfMessages()
{
    if (window == nullptr) return;
    ShowMessage();
    if (window->Pump() && cancelEnabled) cancelled = true;
}

bool ToviProgressDlg::GetCancel()
{
    if (throttled && !std::exchange(pollPending, false)) return false;
    DisposeOfMessages();
    return std::exchange(cancelled, false);
}

void ToviProgressDlg::EnableParentWindow(bool enable)
{
    if (window->HasOwner()) window->EnableOwner(enable);
}

bool ToviProgressDlg::DestroyWindow()
{
    if (window == nullptr) return false;
    const bool existed = window->IsWindow();
    EnableParentWindow(true);
    window.reset();
    return existed;
}
