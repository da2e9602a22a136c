#pragma once

#include "document/ToviData.h"

#include <optional>

/// What an inspector does to the labels and the comment of the photograph at hand. Each command
/// that has a photograph marks the document as changed and tells all views.
class TOVI_EXPORT LabelCommands
{
public:
    /// Where the commands find the photograph, and who shows what they did.
    class Desk
    {
    public:
        /// The photograph at hand, one of Document(); null for none.
        virtual ToviPhoto* Photo() const = 0;
        virtual ToviData* Document() const = 0;
        /// Lets the user edit \p comment; nothing when the user gives up. The photograph and the
        /// document may be others afterwards.
        virtual std::optional<CString> AskComment(const CString& comment) = 0;
        /// Show the labels or the comment of \p photo anew, if it is on show.
        virtual void ShowLabels(const ToviPhoto& photo) = 0;
        virtual void ShowComment(const ToviPhoto& photo) = 0;

    protected:
        ~Desk() = default;
    };

    explicit LabelCommands(Desk& theDesk) : desk(theDesk) {}

    /// Pastes \p label, OK and the NG labels in each other's place; for the comment label lets the
    /// user edit the comment instead, which also counts as a change when the user gives up.
    void Paste(unsigned int label);
    /// Removes \p label, the comment with its label; that one not in slide mode.
    void Remove(unsigned int label);
    void RemoveAll();
    /// Removes \p label where it is pasted, else pastes it; edits the comment in either case, but
    /// not in slide mode.
    void Toggle(unsigned int label);

private:
    void EditComment(ToviPhoto& photo);
    void TellOfChange(const ToviPhoto& photo);

    Desk& desk;
};
