#include "windows/dialogs/FileDialog.h"

#include "platform/files/DeliveredFolder.h"
#include "platform/text/QtText.h"

#include <QAbstractItemView>
#include <QAction>
#include <QDialogButtonBox>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

namespace
{
bool Saves(FileDialog::Use use)
{
    return use == FileDialog::Use::SaveFile || use == FileDialog::Use::SaveFolder;
}

bool IsNameOfOneFolder(const QString& name)
{
    return !name.isEmpty() && name != QLatin1String(".") && name != QLatin1String("..") &&
           !name.contains(QLatin1Char('/')) && !name.contains(QChar::Null);
}
} // namespace

FileDialog::FileDialog(Use dialogUse, const QString& title, const QString& folder, QWidget* parent)
    : QFileDialog(parent, title), use(dialogUse)
{
    setOptions(DontUseNativeDialog | ReadOnly | DontUseCustomDirectoryIcons);
    setDirectory(folder);
    setAcceptMode(use == Use::SaveFile ? AcceptSave : AcceptOpen);
    if (use == Use::OpenFile) setFileMode(ExistingFile);
    if (use == Use::OpenFolder || use == Use::SaveFolder) {
        setFileMode(Directory);
        setOption(ShowDirsOnly);
    }
    OnlyChoose();
    if (!Saves(use)) return;
    const QPushButton* const newFolder = findChild<QDialogButtonBox*>()->addButton(
        QStringLiteral("新しいフォルダ(&F)..."), QDialogButtonBox::ActionRole);
    connect(newFolder, &QPushButton::clicked, this, &FileDialog::MakeFolder);
}

QString FileDialog::Ask()
{
    return exec() == Accepted ? Chosen() : QString();
}

/// A folder that is typed is the one that is meant, whatever the list has selected.
QString FileDialog::Chosen() const
{
    const auto* const field = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    if (fileMode() == Directory && field != nullptr && !field->text().isEmpty()) {
        const QString typed = QDir::cleanPath(directory().absoluteFilePath(field->text()));
        if (QFileInfo(typed).isDir()) return typed;
    }
    return selectedFiles().value(0);
}

void FileDialog::OnlyChoose()
{
    for (const char* name : {"qt_delete_action", "qt_rename_action", "qt_new_folder_action"}) {
        for (QAction* action : findChildren<QAction*>(QLatin1String(name)))
            action->setVisible(false);
    }
    if (auto* button = findChild<QWidget*>(QStringLiteral("newFolderButton"))) button->hide();
    for (QAbstractItemView* view : findChildren<QAbstractItemView*>()) {
        view->setEditTriggers(QAbstractItemView::NoEditTriggers);
        view->setDragDropMode(QAbstractItemView::NoDragDrop);
    }
    for (QWidget* widget : findChildren<QWidget*>()) widget->setAcceptDrops(false);
}

void FileDialog::accept()
{
    const QString chosen = Chosen();
    const bool leadsOn = use == Use::SaveFile && QFileInfo(chosen).isDir();
    if (Saves(use) && !leadsOn && Refuse(chosen)) return;
    QFileDialog::accept();
}

bool FileDialog::Refuse(const QString& path)
{
    if (IsInDelivery(FromQtText(path))) {
        Warn(QStringLiteral(
            "納品データのフォルダには保存できません。\n別のフォルダを指定してください。"));
        return true;
    }
    if (use == Use::SaveFile && !QFileInfo(path).dir().exists()) {
        Warn(QStringLiteral("フォルダがありません。別の場所を指定してください。\n") +
             QFileInfo(path).path());
        return true;
    }
    return false;
}

void FileDialog::MakeFolder()
{
    const QString title = QStringLiteral("新しいフォルダ");
    const QString place = directory().absolutePath();
    if (IsInDelivery(FromQtText(place))) {
        Warn(QStringLiteral("納品データの中にフォルダは作れません。\n") + place);
        return;
    }
    bool confirmed = false;
    const QString name = QInputDialog::getText(this, title, QStringLiteral("フォルダの名前："),
                                               QLineEdit::Normal, title, &confirmed)
                             .trimmed();
    if (!confirmed) return;
    if (!IsNameOfOneFolder(name)) {
        Warn(QStringLiteral("フォルダの名前に使えない文字があります。\n") + name);
    } else if (QFileInfo::exists(directory().filePath(name))) {
        Warn(QStringLiteral("同じ名前のものがあります。別の名前にしてください。\n") + name);
    } else if (!directory().mkdir(name)) {
        Warn(QStringLiteral("フォルダを作れませんでした。書き込みの権限と空き容量を確かめて"
                            "ください。\n") +
             directory().filePath(name));
    } else {
        setDirectory(directory().filePath(name));
    }
}

void FileDialog::Warn(const QString& text)
{
    QMessageBox box(QMessageBox::Warning, windowTitle(), text, QMessageBox::Ok, this);
    box.setTextFormat(Qt::PlainText);
    box.exec();
}
