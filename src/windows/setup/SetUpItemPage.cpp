#include "windows/setup/SetUpItemPage.h"

#include "items/ToviItemShowSettings.h"
#include "platform/controls/Radios.h"
#include "platform/controls/WindowId.h"
#include "platform/text/QtText.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QComboBox>
#include <QGroupBox>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace
{
constexpr int idItems = 1056;
constexpr int idChangeItems = 1057;
constexpr int idKey = 1071;
constexpr int noDirection = -1;
constexpr int ascending = 0;
constexpr int descending = 1;
} // namespace

SetUpItemPage::SetUpItemPage() : items(new QListWidget), key(new QComboBox)
{
    auto* const row = new QHBoxLayout(this);
    row->addWidget(MakeItems(), 1);
    row->addWidget(MakeSort(), 1);
}

QWidget* SetUpItemPage::MakeItems()
{
    auto* const box = new QGroupBox(QStringLiteral("『写真情報リスト』表示項目"));
    auto* const column = new QVBoxLayout(box);
    SetWindowId(items, idItems);
    items->setAccessibleName(box->title());
    items->setSelectionMode(QAbstractItemView::NoSelection);
    items->setMinimumHeight(items->fontMetrics().lineSpacing() * 6);
    auto* const change = new QPushButton(QStringLiteral("『表示項目』と『表示順』の設定..."));
    SetWindowId(change, idChangeItems);
    change->setAutoDefault(false);
    connect(change, &QPushButton::clicked, this, &SetUpItemPage::ItemsRequested);
    column->addWidget(items, 1);
    column->addWidget(change);
    return box;
}

QWidget* SetUpItemPage::MakeSort()
{
    auto* const box = new QGroupBox(QStringLiteral("写真の表示順"));
    auto* const column = new QVBoxLayout(box);
    sort = AddRadios(box, column, {{1069, "「並べ替え」しない"}, {1070, "「並べ替え」する"}});
    auto* const terms = new QGroupBox(QStringLiteral("並べ替えの条件"));
    auto* const termColumn = new QVBoxLayout(terms);
    SetWindowId(key, idKey);
    key->setAccessibleName(QStringLiteral("並べ替える項目"));
    for (const char* title : sortKeys) key->addItem(QString::fromUtf8(title));
    termColumn->addWidget(key);
    direction = AddRadios(terms, termColumn, {{1072, "昇順"}, {1073, "降順"}});
    column->addWidget(terms);
    column->addStretch(1);
    connect(sort, &QButtonGroup::idClicked, this, [this](int id) { OnSortClicked(id == 1); });
    return box;
}

void SetUpItemPage::ShowItems(const ToviItemShowSettings& candidates)
{
    items->clear();
    for (const ToviItemShowSetting& item : candidates) {
        if (item.bold) items->addItem(QtText(item.title));
    }
}

void SetUpItemPage::ShowSort(const ToviSortCondition& condition)
{
    const SortChoice choice = SortChoiceOf(condition);
    sort->button(choice.sorts ? 1 : 0)->setChecked(true);
    key->setCurrentIndex(key->findText(QtText(choice.key)));
    Choose(!choice.sorts ? noDirection : choice.descending ? descending : ascending);
    EnableSort(choice.sorts);
}

SortChoice SetUpItemPage::GetSort() const
{
    return {sort->checkedId() == 1, FromQtText(key->currentText()),
            direction->checkedId() == descending};
}

void SetUpItemPage::OnSortClicked(bool sorts)
{
    if (sorts == key->isEnabled()) return;
    key->setCurrentIndex(sorts ? 0 : -1);
    Choose(sorts ? ascending : noDirection);
    EnableSort(sorts);
}

void SetUpItemPage::EnableSort(bool enable)
{
    key->setEnabled(enable);
    EnableRadios(*direction, enable);
}

/// Checks the radio button of \p which, or none.
void SetUpItemPage::Choose(int which)
{
    direction->setExclusive(false);
    for (QAbstractButton* button : direction->buttons()) {
        button->setChecked(direction->id(button) == which);
    }
    direction->setExclusive(true);
}
