#pragma once

#include "platform/UserInterface.h"

#include <deque>
#include <optional>
#include <vector>

/// A user whose answers are known beforehand: it records what it is asked and answers from lists.
class TOVI_EXPORT ScriptedUserInterface : public UserInterface
{
public:
    enum class CallKind
    {
        Message,
        FolderChooser,
        Progress
    };

    /// One call with its exact texts; a field that the kind has no use for keeps its default.
    struct Call
    {
        CallKind kind;
        CString text;
        /// The caption of a message, the title of a folder chooser.
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
    /// What was called, in order. The text of a folder chooser is the folder that it starts at.
    std::vector<Call> calls;

    /// The texts of the messages shown, in order.
    CStringArray Messages() const;

    MessageAnswer ShowMessage(const CString& text, const CString& caption, MessageButtons buttons,
                              MessageIcon icon) override;
    bool ChooseFolder(CString& folder, const CString& title, FolderChooserStyle style) override;
    void ShowProgress(const CString& text) override;
};
