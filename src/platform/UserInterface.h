#pragma once

#include "platform/Text.h"

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

    /// Tells how far a long work has come. An empty text takes the display away.
    virtual void ShowProgress(const CString& text) = 0;
};
