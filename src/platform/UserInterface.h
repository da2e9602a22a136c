#pragma once

#include "platform/CWnd.h"
#include "platform/ProgressPort.h"
#include "platform/Text.h"

#include <memory>

enum class MessageIcon
{
    Information,
    Warning,
    Error,
    Question
};

enum class MessageButtons
{
    Ok,
    OkCancel,
    YesNo,
    YesNoCancel
};

enum class MessageAnswer
{
    Ok,
    Cancel,
    Yes,
    No
};

/// The two looks of the folder chooser.
enum class FolderChooserStyle
{
    Plain,
    WithEditField
};

/// A question with several answers of which one is chosen, and a way out that is the default.
struct Choice
{
    struct Option
    {
        CString text;
        /// What the option does, in a line below it.
        CString explanation;

        bool operator==(const Option&) const = default;
    };

    CString title;
    /// Lines above the options.
    CStringArray notes;
    CArray<Option> options;
};

/// How the library asks the user from below the windows. The host installs one implementation at
/// its start (see HostServices); each call returns when the user has answered.
class TOVI_EXPORT UserInterface
{
public:
    virtual ~UserInterface() = default;

    /// Shows \p text in a box titled \p caption and returns the button that closed it.
    virtual MessageAnswer ShowMessage(const CString& text, const CString& caption,
                                      MessageButtons buttons, MessageIcon icon) = 0;

    /// Lets the user choose a folder, starting at \p folder. True when one was chosen, which then
    /// stands in \p folder; false leaves \p folder alone.
    virtual bool ChooseFolder(CString& folder, const CString& title, FolderChooserStyle style) = 0;

    /// Lets the user choose one of the options of \p choice, of which the first is proposed. True
    /// when one was chosen, whose index then stands in \p option.
    virtual bool Choose(const Choice& choice, int& option) = 0;

    /// Tells how far a long work has come. An empty text takes the display away.
    virtual void ShowProgress(const CString& text) = 0;

    /// Opens, still hidden, the progress window of a long work over \p parent, or over the host's
    /// main window when it is null. Null where there is none to open. It doesn't outlive the user
    /// interface.
    virtual std::unique_ptr<ProgressPort> CreateProgress(CWnd* /*parent*/) { return nullptr; }
};
