#include "windows/dialogs/QtUserInterface.h"

#include "platform/controls/WindowHandle.h"
#include "platform/files/UserFolders.h"
#include "platform/text/QtText.h"
#include "windows/dialogs/ChoiceDialog.h"
#include "windows/dialogs/FileDialog.h"
#include "windows/dialogs/FolderDialog.h"
#include "windows/dialogs/ProgressWindow.h"

#include <QApplication>
#include <QDesktopServices>
#include <QMessageBox>
#include <QPushButton>
#include <QUrl>

#include <utility>
#include <vector>

namespace
{
struct Button
{
    QMessageBox::StandardButton button;
    QString text;
    MessageAnswer answer;
};

const Button& ButtonOf(MessageAnswer answer)
{
    static const Button all[] = {
        {QMessageBox::Ok, QStringLiteral("OK"), MessageAnswer::Ok},
        {QMessageBox::Yes, QStringLiteral("はい(&Y)"), MessageAnswer::Yes},
        {QMessageBox::No, QStringLiteral("いいえ(&N)"), MessageAnswer::No},
        {QMessageBox::Cancel, QStringLiteral("キャンセル"), MessageAnswer::Cancel}};
    for (const Button& button : all) {
        if (button.answer == answer) return button;
    }
    return all[0];
}

std::vector<MessageAnswer> AnswersOf(MessageButtons buttons)
{
    switch (buttons) {
    case MessageButtons::OkCancel:
        return {MessageAnswer::Ok, MessageAnswer::Cancel};
    case MessageButtons::YesNo:
        return {MessageAnswer::Yes, MessageAnswer::No};
    case MessageButtons::YesNoCancel:
        return {MessageAnswer::Yes, MessageAnswer::No, MessageAnswer::Cancel};
    case MessageButtons::Ok:
        break;
    }
    return {MessageAnswer::Ok};
}

/// The filter of a file dialog: the kind's name and its patterns in either letter case.
QString FilterText(const FileKind& kind)
{
    const QString name = QtText(kind.kind.substr(0, kind.kind.find('(')));
    return QStringLiteral("%1 (%2 %3)")
        .arg(name, QtText(kind.pattern).toUpper(), QtText(kind.pattern).toLower());
}

/// Offers \p kinds in \p dialog, and has a name without an ending get that of the chosen one.
void OfferKinds(QFileDialog& dialog, const std::vector<FileKind>& kinds)
{
    QStringList filters;
    for (const FileKind& kind : kinds) filters << FilterText(kind);
    filters << QStringLiteral("すべてのファイル (*)");
    dialog.setNameFilters(filters);
    dialog.setDefaultSuffix(QtText(kinds.front().extension));
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog,
                     [&dialog, kinds, filters](const QString& filter) {
                         const auto chosen = static_cast<std::size_t>(filters.indexOf(filter));
                         if (chosen >= kinds.size()) return;
                         dialog.setDefaultSuffix(QtText(kinds[chosen].extension));
                     });
}

/// Where a dialog for files starts that was told no folder.
QString StartFolder(const CString& folder)
{
    return QtText(folder.empty() ? CurrentUserFolders().documents : folder);
}

QMessageBox::Icon IconOf(MessageIcon icon)
{
    switch (icon) {
    case MessageIcon::Warning:
        return QMessageBox::Warning;
    case MessageIcon::Error:
        return QMessageBox::Critical;
    case MessageIcon::Question:
        return QMessageBox::Question;
    case MessageIcon::Information:
        break;
    }
    return QMessageBox::Information;
}
} // namespace

void QtUserInterface::SetProgressDisplay(std::function<void(const CString&)> display)
{
    progressDisplay = std::move(display);
}

MessageAnswer QtUserInterface::ShowMessage(const CString& text, const CString& caption,
                                           MessageButtons buttons, MessageIcon icon)
{
    QMessageBox box(IconOf(icon), QtText(caption), QtText(text), QMessageBox::NoButton, Owner());
    box.setTextFormat(Qt::PlainText);
    const std::vector<MessageAnswer> answers = AnswersOf(buttons);
    for (const MessageAnswer answer : answers) {
        box.addButton(ButtonOf(answer).button)->setText(ButtonOf(answer).text);
    }
    // What can only be done or left is asked because it changes much.
    const bool isGrave = buttons == MessageButtons::OkCancel;
    box.setDefaultButton(ButtonOf(isGrave ? answers.back() : answers.front()).button);
    box.setEscapeButton(ButtonOf(answers.back()).button);
    const int pressed = box.exec();
    for (const MessageAnswer answer : answers) {
        if (ButtonOf(answer).button == pressed) return answer;
    }
    return answers.back();
}

bool QtUserInterface::ChooseFolder(CString& folder, const CString& title, FolderChooserStyle style)
{
    const auto use = style == FolderChooserStyle::WithEditField ? FileDialog::Use::SaveFolder
                                                                : FileDialog::Use::OpenFolder;
    const QString chosen = FileDialog(use, QtText(title), StartFolder(folder), Owner()).Ask();
    if (chosen.isEmpty()) return false;
    folder = FromQtText(chosen);
    return true;
}

bool QtUserInterface::Choose(const Choice& choice, int& option)
{
    ChoiceDialog dialog(choice, Owner());
    if (!dialog.DoModal()) return false;
    option = dialog.GetOption();
    return true;
}

bool QtUserInterface::AskFolder(const FolderQuestion& question, CString& folder)
{
    FolderDialog dialog(question, folder, Owner());
    if (!dialog.DoModal()) return false;
    folder = dialog.GetFolder();
    return true;
}

bool QtUserInterface::ChooseSaveFile(const SaveQuestion& question, CString& path)
{
    FileDialog dialog(FileDialog::Use::SaveFile, QStringLiteral("名前を付けて保存"),
                      StartFolder(question.folder), Owner());
    std::vector<FileKind> kinds = {{question.extension, question.kind, question.pattern}};
    kinds.insert(kinds.end(), question.otherKinds.begin(), question.otherKinds.end());
    OfferKinds(dialog, kinds);
    dialog.selectFile(QtText(question.name));
    const QString chosen = dialog.Ask();
    if (chosen.isEmpty()) return false;
    path = FromQtText(chosen);
    return true;
}

bool QtUserInterface::OpenFile(const CString& path)
{
    return QDesktopServices::openUrl(QUrl::fromLocalFile(QtText(path)));
}

void QtUserInterface::ShowProgress(const CString& text)
{
    if (progressDisplay) progressDisplay(text);
}

std::unique_ptr<ProgressPort> QtUserInterface::CreateProgress(CWnd* parent)
{
    QWidget* const owner = parent != nullptr ? AsWidget(parent) : Owner();
    return std::make_unique<ProgressWindowPort>(owner != nullptr ? owner->window() : nullptr);
}

QWidget* QtUserInterface::Owner() const
{
    if (QWidget* const modal = QApplication::activeModalWidget()) return modal;
    // A dialog about a photograph stays above the window of that photograph. Where one dialog
    // follows the other, no window is active yet.
    if (QWidget* const active = QApplication::activeWindow()) lastOwner = active;
    return lastOwner && lastOwner->isVisible() ? lastOwner.data() : mainWindow.data();
}
