#pragma once

#include "delivery/ToviData.h"
#include "review/LabelEdits.h"

#include <optional>

/// What an inspector does to the labels and the comment of a photograph. Each command is one edit;
/// none when he gives up a comment, or for a photo index below 0.
class TOVI_EXPORT LabelCommands
{
public:
    /// Where the commands find the document, and who asks and shows.
    class Desk
    {
    public:
        virtual ToviData* Document() const = 0;
        /// Lets the user edit \p comment; nothing when the user gives up. The document may be
        /// another one afterwards.
        virtual std::optional<CString> AskComment(const CString& comment) = 0;
        /// Shows what \p edit, of which all other views have heard, has changed.
        virtual void ShowEdit(const LabelEdit& edit) = 0;

    protected:
        ~Desk() = default;
    };

    /// \p theWindow is the view of \p theDesk.
    LabelCommands(Desk& theDesk, CWnd* theWindow) : desk(theDesk), window(theWindow) {}

    /// Pastes \p label, OK and the NG labels in each other's place; for the comment label lets the
    /// user edit the comment instead.
    void Paste(int photo, unsigned int label);
    /// Removes \p label, the comment with its label; that one not in slide mode.
    void Remove(int photo, unsigned int label);
    void RemoveAll(int photo);
    /// Removes \p label where it is pasted, else pastes it; edits the comment in either case, but
    /// not in slide mode. True when \p label is pasted by that.
    bool Toggle(int photo, unsigned int label);

private:
    void EditComment(int photo);
    void Change(int photo, const LabelEdits::Rule& rule);

    Desk& desk;
    CWnd* window;
};
