#include "windows/dialogs/FolderDialog.h"

#include "platform/pictures/QtColor.h"
#include "platform/text/QtText.h"
#include "windows/dialogs/FileDialog.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

#include <algorithm>

namespace
{
constexpr unsigned long messageColor = 0xFAFFEE;

QLabel* MakeMessage(const CString& text)
{
    auto* message = new QLabel(QtText(text));
    message->setTextFormat(Qt::PlainText);
    message->setWordWrap(true);
    message->setMargin(6);
    message->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    QPalette colors = message->palette();
    colors.setColor(QPalette::Window, QtColor(messageColor));
    colors.setColor(QPalette::WindowText, Qt::black);
    message->setPalette(colors);
    message->setAutoFillBackground(true);
    return message;
}
} // namespace

FolderDialog::FolderDialog(const FolderQuestion& question, const CString& folder, QWidget* parent)
    : WenDialog(parent), field(new QLineEdit(QtText(folder)))
{
    setWindowTitle(QtText(question.title));
    // A longer one that is handed in isn't cut.
    field->setMaxLength(std::max<int>(longestFolder, static_cast<int>(field->text().size())));
    auto* prompt = new QLabel(QtText(question.prompt));
    auto* fieldTitle = new QLabel(QStringLiteral("フォルダ："));
    fieldTitle->setBuddy(field);
    auto* browse = new QPushButton(QStringLiteral("参照..."));
    connect(browse, &QPushButton::clicked, this, &FolderDialog::Browse);
    auto* listTitle = new QLabel(QtText(question.listTitle));
    auto* list = new QListWidget;
    list->setUniformItemSizes(true);
    list->setAccessibleName(listTitle->text());
    for (const CString& line : question.list) list->addItem(QtText(line));

    auto* layout = new QGridLayout(this);
    layout->addWidget(MakeMessage(question.message), 0, 0, 1, 3);
    layout->addWidget(prompt, 1, 0, 1, 3);
    layout->addWidget(fieldTitle, 2, 0);
    layout->addWidget(field, 2, 1);
    layout->addWidget(browse, 2, 2);
    layout->addWidget(listTitle, 3, 0, 1, 3);
    layout->addWidget(list, 4, 0, 1, 3);
    layout->addWidget(MakeOkCancel(), 5, 0, 1, 3);
    field->setAcceptDrops(false);
    field->setFocus();
    setMinimumWidth(540);
}

CString FolderDialog::GetFolder() const
{
    return FromQtText(field->text());
}

void FolderDialog::Browse()
{
    FileDialog dialog(FileDialog::Use::OpenFolder, QStringLiteral("フォルダの選択"), field->text(),
                      this);
    const QString chosen = dialog.Ask();
    if (!chosen.isEmpty()) field->setText(chosen);
}
