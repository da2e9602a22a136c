#include "platform/host/TerminalUserInterface.h"

#include "platform/host/Interrupt.h"
#include "platform/text/TerminalText.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

namespace
{
constexpr auto progressPause = std::chrono::milliseconds(100);
constexpr int usualColumns = 80;
constexpr std::string_view clearLine = "\r\x1b[K";

struct WideRange
{
    char32_t first;
    char32_t last;
};

/// Characters that take two columns of a terminal.
constexpr WideRange wideRanges[] = {
    {0x1100, 0x115F}, {0x2E80, 0x303E}, {0x3041, 0xA4CF}, {0xAC00, 0xD7A3},   {0xF900, 0xFAFF},
    {0xFE30, 0xFE6F}, {0xFF01, 0xFF60}, {0xFFE0, 0xFFE6}, {0x1F300, 0x1F9FF}, {0x20000, 0x3FFFD},
};

int ColumnsOf(char32_t codePoint)
{
    const bool wide =
        std::any_of(std::begin(wideRanges), std::end(wideRanges), [codePoint](WideRange range) {
            return codePoint >= range.first && codePoint <= range.last;
        });
    return wide ? 2 : 1;
}

/// As much of \p text as fits into \p columns of one line.
CString OneLine(std::string_view text, int columns)
{
    CString line;
    while (!text.empty()) {
        char32_t codePoint = TakeCodePoint(text);
        if (SteersTerminal(codePoint)) codePoint = U' ';
        columns -= ColumnsOf(codePoint);
        if (columns < 0) break;
        AppendUtf8(line, codePoint);
    }
    return line;
}

/// The progress of a long work as one line.
class ProgressLine : public ProgressPort
{
public:
    explicit ProgressLine(UserInterface& terminal) : user(terminal) {}
    ~ProgressLine() override { user.ShowProgress(""); }

    bool IsWindow() const override { return true; }
    bool HasOwner() const override { return false; }
    void EnableOwner(bool /*enable*/) override {}
    void SetCancelEnabled(bool enable) override
    {
        if (enable) {
            listener.emplace();
        } else {
            listener.reset();
        }
    }
    void SetCaption(const CString& /*text*/) override {}
    void SetRange(int /*lower*/, int /*upper*/) override {}
    void SetBar(int /*pos*/) override {}
    void SetMessage(const CString& text) override
    {
        message = text;
        Draw();
    }
    void SetPercent(const CString& text) override
    {
        percent = text;
        Draw();
    }
    void Show() override { Draw(); }
    bool Pump() override { return listener && WasInterrupted(); }

private:
    void Draw()
    {
        const char* const gap = message.empty() || percent.empty() ? "" : "  ";
        user.ShowProgress(message + gap + percent);
    }

    UserInterface& user;
    CString message;
    CString percent;
    std::optional<InterruptListener> listener;
};
} // namespace

TerminalUserInterface::TerminalUserInterface(int outputDescriptor)
    : output(outputDescriptor), isTerminal(isatty(outputDescriptor) == 1)
{}

TerminalUserInterface::~TerminalUserInterface()
{
    ClearProgress();
}

MessageAnswer TerminalUserInterface::SafeAnswer(MessageButtons buttons)
{
    switch (buttons) {
    case MessageButtons::Ok:
        return MessageAnswer::Ok;
    case MessageButtons::YesNo:
        return MessageAnswer::No;
    case MessageButtons::OkCancel:
    case MessageButtons::YesNoCancel:
        break;
    }
    return MessageAnswer::Cancel;
}

MessageAnswer TerminalUserInterface::ShowMessage(const CString& text, const CString& caption,
                                                 MessageButtons buttons, MessageIcon /*icon*/)
{
    ClearProgress();
    Write(HarmlessText(caption.empty() ? text : caption + ": " + text) + '\n');
    return SafeAnswer(buttons);
}

bool TerminalUserInterface::ChooseFolder(CString& /*folder*/, const CString& /*title*/,
                                         FolderChooserStyle /*style*/)
{
    return false;
}

bool TerminalUserInterface::Choose(const Choice&, int&)
{
    return false;
}

void TerminalUserInterface::ShowProgress(const CString& text)
{
    if (!isTerminal) return;
    if (text.empty()) {
        ClearProgress();
        return;
    }
    const auto now = std::chrono::steady_clock::now();
    if (lastProgress && now - *lastProgress < progressPause) return;
    lastProgress = now;
    // The last column stays free: many terminals go to the next line once it is filled.
    Write(CString(clearLine) + OneLine(text, Columns() - 1));
    progressShown = true;
}

std::unique_ptr<ProgressPort> TerminalUserInterface::CreateProgress(CWnd* /*parent*/)
{
    return std::make_unique<ProgressLine>(*this);
}

void TerminalUserInterface::Write(std::string_view bytes) const
{
    while (!bytes.empty()) {
        const ssize_t written = write(output, bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR) return;
        if (written > 0) bytes.remove_prefix(static_cast<std::size_t>(written));
    }
}

void TerminalUserInterface::ClearProgress()
{
    if (progressShown) Write(clearLine);
    progressShown = false;
    lastProgress.reset();
}

int TerminalUserInterface::Columns() const
{
    winsize size = {};
    return ioctl(output, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : usualColumns;
}
