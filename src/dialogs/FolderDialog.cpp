#include "dialogs/FolderDialog.h"

#include "platform/QtText.h"

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

FolderDialog::FolderDialog(const FolderQuestion& question, const CString& folder, QWidget* parent)
    : WenDialog(parent), field(new QLineEdit(QtText(folder)))
{
    setWindowTitle(QtText(question.title));
    field->setMaxLength(longestFolder);
    auto* message = new QLabel(QtText(question.message));
    message->setWordWrap(true);
    auto* prompt = new QLabel(QtText(question.prompt));
    prompt->setBuddy(field);
    auto* browse = new QPushButton(QStringLiteral("参照(&B)..."));
    connect(browse, &QPushButton::clicked, this, &FolderDialog::Browse);
    auto* listTitle = new QLabel(QtText(question.listTitle));
    auto* list = new QListWidget;
    list->setUniformItemSizes(true);
    list->setAccessibleName(listTitle->text());
    for (const CString& line : question.list) list->addItem(QtText(line));

    auto* layout = new QGridLayout(this);
    layout->addWidget(message, 0, 0, 1, 2);
    layout->addWidget(prompt, 1, 0, 1, 2);
    layout->addWidget(field, 2, 0);
    layout->addWidget(browse, 2, 1);
    layout->addWidget(listTitle, 3, 0, 1, 2);
    layout->addWidget(list, 4, 0, 1, 2);
    layout->addWidget(MakeOkCancel(), 5, 0, 1, 2);
    field->setFocus();
    setMinimumWidth(480);
}

CString FolderDialog::GetFolder() const
{
    return FromQtText(field->text());
}

void FolderDialog::Browse()
{
    const QString chosen = QFileDialog::getExistingDirectory(this, windowTitle(), field->text());
    if (!chosen.isEmpty()) field->setText(chosen);
}
