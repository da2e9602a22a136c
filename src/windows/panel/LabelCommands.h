#pragma once

#include "delivery/ToviData.h"
#include "review/LabelEdits.h"

#include <optional>
#include <vector>

/// What an inspector does to the labels and the comments of photographs, which are told by their
/// photo indexes. Each command is one edit, none when he gives up a comment, or of no photographs.
class TOVI_EXPORT LabelCommands
{
public:
    using Photos = std::vector<int>;

    /// Where the commands find the document, and who asks and shows.
    class Desk
    {
    public:
        virtual ToviData* Document() const = 0;
        /// Lets the user edit \p comment, which will be that of \p photos; nothing when the user
        /// gives up. The document may be another one afterwards.
        virtual std::optional<CString> AskComment(const Photos& photos, const CString& comment) = 0;
        /// Shows what \p edit, of which all other views have heard, has changed.
        virtual void ShowEdit(const LabelEdit& edit) = 0;

    protected:
        ~Desk() = default;
    };

    /// \p theWindow is the view of \p theDesk.
    LabelCommands(Desk& theDesk, CWnd* theWindow) : desk(theDesk), window(theWindow) {}

    /// Pastes \p label, OK and the NG labels in each other's place; for the comment label lets the
    /// user edit the comment instead.
    void Paste(const Photos& photos, unsigned int label);
    /// Removes \p label, the comment with its label; that one not in slide mode.
    void Remove(const Photos& photos, unsigned int label);
    void RemoveAll(const Photos& photos);
    /// Takes \p comment as that of all.
    void SetComment(const Photos& photos, const CString& comment);
    /// Removes \p label where all have it, else pastes it; edits the comment in either case, but
    /// not in slide mode. True when \p label is pasted by that.
    bool Toggle(const Photos& photos, unsigned int label);

    /// What \p photos have as their comment; empty where they differ.
    CString CommonComment(const Photos& photos) const;

private:
    void EditComment(const Photos& photos);
    bool HaveAll(const Photos& photos, unsigned int label) const;
    void Change(const Photos& photos, const LabelEdits::Rule& rule);

    Desk& desk;
    CWnd* window;
};
