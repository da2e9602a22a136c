#pragma once

#include "platform/host/CWnd.h"
#include "platform/host/ProgressPort.h"
#include "platform/text/Text.h"

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

/// The two looks of the folder chooser: one for what is read, and one for what will be written to,
/// in which a folder can also be made.
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
    /// The text of the button that accepts. Enter accepts only where the choice can do no harm.
    CString accept = "OK";
    bool enterAccepts = false;
};

/// A kind of file as it is offered for saving.
struct FileKind
{
    /// What a name without one gets, without its dot.
    CString extension;
    /// Its name, with the pattern of its names: "JPEG(*.JPG)", "*.JPG".
    CString kind;
    CString pattern;

    bool operator==(const FileKind&) const = default;
};

/// Where one file is to be saved.
struct SaveQuestion
{
    /// The folder and the name that are proposed; an empty folder leaves it to the host.
    CString folder;
    CString name;
    /// What a name without one gets, without its dot.
    CString extension;
    /// The kind of file as it is offered, with the pattern of its names: "JPEG(*.JPG)", "*.JPG".
    CString kind;
    CString pattern;
    /// The kinds that can be chosen in place of that one.
    CArray<FileKind> otherKinds = {};

    bool operator==(const SaveQuestion&) const = default;
};

/// The question for a folder in view of a list.
struct FolderQuestion
{
    CString title;
    CString message;
    /// The line above the field for the folder.
    CString prompt;
    CString listTitle;
    CStringArray list;
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

    /// Lets the user type or choose a folder, starting at \p folder. True when it was confirmed; it
    /// then stands in \p folder. False, with \p folder left alone, when the user gave up or there
    /// is nobody to ask.
    virtual bool AskFolder(const FolderQuestion& /*question*/, CString& /*folder*/)
    {
        return false;
    }

    /// Lets the user choose the file to save into, asks before one that is there is overwritten,
    /// and leaves the program's current folder alone. True when a file was chosen, whose full path
    /// then stands in \p path.
    virtual bool ChooseSaveFile(const SaveQuestion& /*question*/, CString& /*path*/)
    {
        return false;
    }

    /// Lets the user choose one of the options of \p choice, of which the first is proposed. True
    /// when one was chosen, whose index then stands in \p option.
    virtual bool Choose(const Choice& choice, int& option) = 0;

    /// Opens the file \p path with the program that the system has for it. False when it is known
    /// that there is none.
    virtual bool OpenFile(const CString& /*path*/) { return false; }

    /// Tells how far a long work has come. An empty text takes the display away.
    virtual void ShowProgress(const CString& text) = 0;

    /// Opens, still hidden, the progress window of a long work over \p parent, or over the host's
    /// main window when it is null. Null where there is none to open. It doesn't outlive the user
    /// interface.
    virtual std::unique_ptr<ProgressPort> CreateProgress(CWnd* /*parent*/) { return nullptr; }
};
