#pragma once

#include "platform/host/UserInterface.h"

#include <QPointer>
#include <QWidget>

#include <functional>

/// The user interface of a program with windows.
class TOVI_EXPORT QtUserInterface : public UserInterface
{
public:
    /// Sets the window over which questions and progress stand; null for none.
    void SetMainWindow(QWidget* window) { mainWindow = window; }
    /// Sets what shows the texts of ShowProgress.
    void SetProgressDisplay(std::function<void(const CString&)> display);

    MessageAnswer ShowMessage(const CString& text, const CString& caption, MessageButtons buttons,
                              MessageIcon icon) override;
    bool ChooseFolder(CString& folder, const CString& title, FolderChooserStyle style) override;
    bool Choose(const Choice& choice, int& option) override;
    bool AskFolder(const FolderQuestion& question, CString& folder) override;
    bool ChooseSaveFile(const SaveQuestion& question, CString& path) override;
    bool OpenFile(const CString& path) override;
    void ShowProgress(const CString& text) override;
    std::unique_ptr<ProgressPort> CreateProgress(CWnd* parent) override;

private:
    /// The window on top, over which the next one shall stand.
    QWidget* Owner() const;

    QPointer<QWidget> mainWindow;
    /// The window that the last question was asked over.
    mutable QPointer<QWidget> lastOwner;
    std::function<void(const CString&)> progressDisplay;
};
