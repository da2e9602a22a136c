#include "windows/setup/SetUpKeyPage.h"

#include "platform/host/HostServices.h"
#include "windows/keys/KeyEdit.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>

namespace
{
constexpr int commandRole = Qt::UserRole;

QString TextOf(const QList<QKeySequence>& keys)
{
    QStringList texts;
    for (const QKeySequence& key : keys) texts << KeyText(key);
    return texts.join(QStringLiteral("、"));
}

QString WordsOf(FrameCommand command)
{
    const KeyRow& row = KeyRowOf(command);
    return QStringLiteral("%1：%2").arg(GroupTitle(row.group),
                                        MenuWords(QString::fromUtf8(row.text)));
}
} // namespace

SetUpKeyPage::SetUpKeyPage()
    : keys(CurrentKeys()), commands(new QTreeWidget), edit(new KeyEdit), warning(new QLabel),
      change(new QPushButton(QStringLiteral("このキーにする"))),
      add(new QPushButton(QStringLiteral("このキーを加える"))),
      remove(new QPushButton(QStringLiteral("キーを外す"))),
      reset(new QPushButton(QStringLiteral("初期値に戻す")))
{
    commands->setHeaderLabels({QStringLiteral("すること"), QStringLiteral("キー")});
    commands->setAccessibleName(QStringLiteral("キーの表"));
    commands->setUniformRowHeights(true);
    commands->setMinimumHeight(commands->fontMetrics().lineSpacing() * 12);
    FillCommands();
    auto* const column = new QVBoxLayout(this);
    column->addWidget(commands, 1);
    column->addWidget(MakeEditor());
    column->addWidget(MakeSets());
    connect(commands, &QTreeWidget::currentItemChanged, this, [this] {
        edit->Clear();
        ShowChoice();
    });
    connect(edit, &KeyEdit::KeyTaken, this, &SetUpKeyPage::ShowChoice);
    commands->setCurrentItem(ItemOf(FrameCommand::LabelOk));
}

void SetUpKeyPage::FillCommands()
{
    QTreeWidgetItem* group = nullptr;
    for (const KeyRow& row : KeyTable()) {
        if (row.command == FrameCommand::Fixed) continue;
        const QString title = GroupTitle(row.group);
        if (group == nullptr || group->text(0) != title) {
            group = new QTreeWidgetItem(commands, {title});
            group->setFlags(Qt::ItemIsEnabled);
            group->setFirstColumnSpanned(true);
            group->setExpanded(true);
        }
        auto* const item =
            new QTreeWidgetItem(group, {MenuWords(QString::fromUtf8(row.text)), QString()});
        item->setData(0, commandRole, static_cast<int>(row.command));
    }
    ShowKeys();
    commands->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
}

QWidget* SetUpKeyPage::MakeEditor()
{
    warning->setWordWrap(true);
    warning->setMinimumHeight(2 * warning->fontMetrics().lineSpacing());
    warning->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    auto* const editor = new QWidget;
    auto* const column = new QVBoxLayout(editor);
    column->setContentsMargins({});
    auto* const row = new QHBoxLayout;
    row->addWidget(edit, 1);
    for (QPushButton* const button : {change, add, remove, reset}) {
        button->setAutoDefault(false);
        row->addWidget(button);
    }
    column->addLayout(row);
    column->addWidget(warning);
    connect(change, &QPushButton::clicked, this, [this] { Give(false); });
    connect(add, &QPushButton::clicked, this, [this] { Give(true); });
    connect(remove, &QPushButton::clicked, this, [this] {
        keys.Assign(*Chosen(), {});
        ShowKeys();
    });
    connect(reset, &QPushButton::clicked, this, [this] {
        keys.Assign(*Chosen(), KeySet().Of(*Chosen()));
        ShowKeys();
    });
    return editor;
}

QWidget* SetUpKeyPage::MakeSets()
{
    auto* const all = new QPushButton(QStringLiteral("すべて初期値に戻す"));
    auto* const old = new QPushButton(QStringLiteral("付箋を以前の版のキーにする"));
    old->setToolTip(QStringLiteral("OK：1、NG1～NG3：2～4、任意：5、すべて外す：0"));
    auto* const sets = new QWidget;
    auto* const row = new QHBoxLayout(sets);
    row->setContentsMargins({});
    for (QPushButton* const button : {all, old}) {
        button->setAutoDefault(false);
        row->addWidget(button);
    }
    row->addStretch();
    connect(all, &QPushButton::clicked, this, [this] {
        keys = KeySet();
        ShowKeys();
    });
    connect(old, &QPushButton::clicked, this, [this] {
        keys.TakeOldLabelKeys();
        ShowKeys();
    });
    return sets;
}

QTreeWidgetItem* SetUpKeyPage::ItemOf(FrameCommand command) const
{
    for (QTreeWidgetItemIterator item(commands); *item != nullptr; ++item) {
        const bool isGroup = (*item)->parent() == nullptr;
        if (!isGroup && (*item)->data(0, commandRole).toInt() == static_cast<int>(command))
            return *item;
    }
    return nullptr;
}

std::optional<FrameCommand> SetUpKeyPage::Chosen() const
{
    const QTreeWidgetItem* const item = commands->currentItem();
    if (item == nullptr || item->parent() == nullptr) return {};
    return static_cast<FrameCommand>(item->data(0, commandRole).toInt());
}

void SetUpKeyPage::Give(bool inAddition)
{
    QList<QKeySequence> given{edit->Key()};
    if (inAddition) {
        given = keys.Of(*Chosen());
        if (!given.contains(edit->Key())) given << edit->Key();
    }
    keys.Assign(*Chosen(), given);
    edit->Clear();
    ShowKeys();
}

void SetUpKeyPage::ShowKeys()
{
    for (const KeyRow& row : KeyTable()) {
        if (row.command == FrameCommand::Fixed) continue;
        ItemOf(row.command)->setText(1, TextOf(keys.Of(row.command)));
    }
    ShowChoice();
}

void SetUpKeyPage::ShowChoice()
{
    const auto command = Chosen();
    const bool hasKey = command && !edit->Key().isEmpty();
    const bool isFixed = hasKey && KeySet::IsFixed(*command, edit->Key());
    change->setEnabled(hasKey && !isFixed);
    add->setEnabled(hasKey && !isFixed);
    remove->setEnabled(command && !keys.Of(*command).isEmpty());
    reset->setEnabled(command && keys.Of(*command) != KeySet().Of(*command));
    QString text;
    if (isFixed) {
        text = QStringLiteral("%1 の働きは変えられません。別のキーを押してください。")
                   .arg(KeyText(edit->Key()));
    } else if (hasKey) {
        QStringList losers;
        for (const FrameCommand loser : keys.Clashes(*command, edit->Key()))
            losers << QStringLiteral("「%1」").arg(WordsOf(loser));
        if (!losers.isEmpty()) {
            text = QStringLiteral("%1 は%2のキーです。使うと、そちらからは外れます。")
                       .arg(KeyText(edit->Key()), losers.join(QString()));
        }
    }
    warning->setText(text);
}

void SetUpKeyPage::Take() const
{
    if (ProfileStore* const profile = GetHostServices().profile) keys.Save(*profile);
    SetCurrentKeys(keys);
}
