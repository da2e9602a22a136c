#pragma once

#include "platform/host/UserInterface.h"

#include <deque>
#include <functional>
#include <optional>
#include <set>
#include <vector>

/// A user whose answers are known beforehand: it records what it is asked and answers from lists.
class TOVI_EXPORT ScriptedUserInterface : public UserInterface
{
public:
    enum class CallKind
    {
        Message,
        FolderChooser,
        Choice,
        FolderQuestion,
        SaveQuestion,
        OpenFile,
        Progress
    };

    /// One call with its exact texts; a field that the kind has no use for keeps its default.
    struct Call
    {
        CallKind kind;
        CString text;
        /// The caption of a message, the title of a folder chooser or question.
        CString caption;
        MessageButtons buttons = MessageButtons::Ok;
        MessageIcon icon = MessageIcon::Information;
        FolderChooserStyle style = FolderChooserStyle::Plain;

        bool operator==(const Call&) const = default;
    };

    /// The answers to the messages to come, first one first. With none left the answer is the one
    /// that changes nothing.
    std::deque<MessageAnswer> answers;
    /// The folders that will be chosen, first one first; nothing stands for a cancel, as does an
    /// empty list.
    std::deque<std::optional<CString>> folders;
    /// The last question for a folder.
    FolderQuestion folderQuestion;
    /// The files that will be chosen to save into, likewise.
    std::deque<std::optional<CString>> saveFiles;
    /// The last question for such a file.
    SaveQuestion saveQuestion;
    /// Called with each text of a progress; may be empty.
    std::function<void(const CString&)> onProgress;
    /// The options that will be chosen, first one first; with none left the choice is given up.
    std::deque<int> options;
    /// The last choice that was asked for.
    Choice choice;
    /// Whether the system has a program for a file.
    bool opensFiles = true;
    /// What was called, in order. The text of a folder chooser or question is the folder that it
    /// starts at, that of a question for a file to save into the name that is proposed.
    std::vector<Call> calls;

    /// What the progress windows were told, in order: "open", "cancel 1", "caption Tovi", "range 0
    /// 4", "bar 2", "message text", "percent 50%", "show", "pump", "owner 0", "close".
    std::vector<CString> progress;
    /// The pumps, counted from 1 over all progress windows, in which Cancel is clicked.
    std::set<int> cancelAtPumps;
    /// The pump in which the progress window goes, and the one in which its owner does; 0 for
    /// never.
    int windowGoesAtPump = 0;
    int ownerGoesAtPump = 0;
    int pumps = 0;
    /// Called in each pump; may be empty.
    std::function<void()> onPump;

    /// The texts of the messages shown, in order.
    CStringArray Messages() const;

    MessageAnswer ShowMessage(const CString& text, const CString& caption, MessageButtons buttons,
                              MessageIcon icon) override;
    bool ChooseFolder(CString& folder, const CString& title, FolderChooserStyle style) override;
    bool AskFolder(const FolderQuestion& question, CString& folder) override;
    bool ChooseSaveFile(const SaveQuestion& question, CString& path) override;
    bool Choose(const Choice& asked, int& option) override;
    bool OpenFile(const CString& path) override;
    void ShowProgress(const CString& text) override;
    std::unique_ptr<ProgressPort> CreateProgress(CWnd* parent) override;
};
