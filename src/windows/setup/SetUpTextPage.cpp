#include "windows/setup/SetUpTextPage.h"

#include "platform/text/QtText.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

/// What stands for the end of a line in the list.
static constexpr QChar lineEnd(u'⏎');

SetUpTextPage::SetUpTextPage() : list(new QListWidget)
{
    list->setAccessibleName(QStringLiteral("定型文"));
    list->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                          QAbstractItemView::SelectedClicked);
    list->setDragDropMode(QAbstractItemView::InternalMove);
    auto* const hint = new QLabel(QStringLiteral(
        "コメントの欄に並ぶ文です。上から9つは Alt+1～9 で使えます。使った文は先頭に移ります。"));
    hint->setWordWrap(true);
    const auto button = [this](const char* text, auto operation) {
        auto* const made = new QPushButton(QString::fromUtf8(text));
        made->setAutoDefault(false);
        connect(made, &QPushButton::clicked, this, operation);
        return made;
    };
    auto* const buttons = new QVBoxLayout;
    buttons->addWidget(button("追加", [this] {
        Add({});
        list->setCurrentRow(list->count() - 1);
        list->editItem(list->currentItem());
    }));
    buttons->addWidget(button("書き直す", [this] {
        if (list->currentItem() != nullptr) list->editItem(list->currentItem());
    }));
    buttons->addWidget(button("削除", [this] { delete list->currentItem(); }));
    buttons->addWidget(button("上へ", [this] { Move(-1); }));
    buttons->addWidget(button("下へ", [this] { Move(1); }));
    buttons->addStretch();
    auto* const row = new QHBoxLayout;
    row->addWidget(list, 1);
    row->addLayout(buttons);
    auto* const column = new QVBoxLayout(this);
    column->addWidget(hint);
    column->addLayout(row, 1);
}

void SetUpTextPage::Show(const CStringArray& texts)
{
    list->clear();
    for (const CString& text : texts) Add(text);
}

void SetUpTextPage::Add(const CString& text)
{
    auto* const item = new QListWidgetItem(QtText(text).replace(u'\n', lineEnd), list);
    item->setFlags(item->flags() | Qt::ItemIsEditable);
}

void SetUpTextPage::Move(int by)
{
    const int row = list->currentRow();
    if (row < 0 || row + by < 0 || row + by >= list->count()) return;
    list->insertItem(row + by, list->takeItem(row));
    list->setCurrentRow(row + by);
}

CStringArray SetUpTextPage::Texts() const
{
    CStringArray texts;
    for (int row = 0; row < list->count(); ++row)
        texts.Add(FromQtText(list->item(row)->text().replace(lineEnd, u'\n')));
    return texts;
}
