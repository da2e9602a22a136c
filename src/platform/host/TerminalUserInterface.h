#pragma once

#include "platform/host/UserInterface.h"

#include <chrono>
#include <optional>

/// The user interface of a program without windows: messages go to standard error, nothing is ever
/// asked, and a long work shows one line that is written over, if standard error is a terminal.
class TOVI_EXPORT TerminalUserInterface : public UserInterface
{
public:
    /// \p output is the open file descriptor to write to; it stays the caller's.
    explicit TerminalUserInterface(int output = standardError);
    TerminalUserInterface(const TerminalUserInterface&) = delete;
    TerminalUserInterface& operator=(const TerminalUserInterface&) = delete;
    ~TerminalUserInterface() override;

    /// The answer that changes nothing: Ok where there is no other, else Cancel if offered, else
    /// No.
    static MessageAnswer SafeAnswer(MessageButtons buttons);

    MessageAnswer ShowMessage(const CString& text, const CString& caption, MessageButtons buttons,
                              MessageIcon icon) override;
    bool ChooseFolder(CString& folder, const CString& title, FolderChooserStyle style) override;
    bool Choose(const Choice& choice, int& option) override;
    void ShowProgress(const CString& text) override;
    /// A line with the message and the percentage, whose Cancel is an interrupt (see
    /// platform/host/Interrupt.h).
    std::unique_ptr<ProgressPort> CreateProgress(CWnd* parent) override;

private:
    static constexpr int standardError = 2;

    void Write(std::string_view bytes) const;
    void ClearProgress();
    int Columns() const;

    int output;
    bool isTerminal;
    bool progressShown = false;
    std::optional<std::chrono::steady_clock::time_point> lastProgress;
};
