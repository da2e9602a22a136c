#include "windows/keys/KeySheet.h"

#include "platform/controls/GaluFont.h"
#include "windows/keys/KeySet.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>

#include <algorithm>

namespace
{
constexpr KeyGroup allGroups[] = {KeyGroup::Review, KeyGroup::Move, KeyGroup::View,
                                  KeyGroup::Zoom,   KeyGroup::File, KeyGroup::Help};
constexpr int mostColumns = 3;
constexpr int gap = 12;
/// So many fixed keys, which then have the same modifiers, are told together.
constexpr int mostKeysNamed = 4;

/// Many keys in few words: what they have in common stands once, and of a long row its ends.
QString Joined(QStringList keys)
{
    if (keys.size() < mostKeysNamed) return keys.join(QStringLiteral("、"));
    const QString held = keys.front().left(keys.front().lastIndexOf(QLatin1Char('+')) + 1);
    for (QString& key : keys) key.remove(0, held.size());
    const QString all = keys.size() > mostKeysNamed
                            ? QStringLiteral("%1～%2").arg(keys.front(), keys.back())
                            : keys.join(QString());
    return held + all;
}

/// The keys of a row of the table, changed by the user or fixed.
QString KeysOf(const KeyRow& row)
{
    QStringList texts;
    const QList<QKeySequence> keys = row.command == FrameCommand::Fixed
                                         ? QKeySequence::listFromString(QString::fromUtf8(row.keys))
                                         : CurrentKeys().Of(row.command);
    for (const QKeySequence& key : keys) texts << KeyText(key);
    return row.command == FrameCommand::Fixed ? Joined(texts) : texts.join(QStringLiteral("、"));
}
} // namespace

KeySheet::KeySheet(QWidget* parent)
    : WenDialog(parent), page(new QWidget), area(new QScrollArea), columns(new QHBoxLayout(page))
{
    setWindowTitle(QStringLiteral("キーの一覧"));
    columns->setContentsMargins({});
    columns->setSpacing(gap);
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setWidget(page);
    auto* const hint = new QLabel(
        QStringLiteral("付箋のキーを Shift と押すと、［付けたら次へ］でも次の写真に移りません。"));
    hint->setWordWrap(true);
    auto* const change = new QPushButton(QStringLiteral("キーを変更..."));
    auto* const close = new QPushButton(QStringLiteral("閉じる"));
    close->setDefault(true);
    connect(change, &QPushButton::clicked, this, &KeySheet::ChangeWanted);
    connect(close, &QPushButton::clicked, this, &KeySheet::accept);
    auto* const foot = new QHBoxLayout;
    foot->addWidget(hint, 1);
    foot->addWidget(change);
    foot->addWidget(close);
    auto* const whole = new QVBoxLayout(this);
    whole->addWidget(area, 1);
    whole->addLayout(foot);
    ShowKeys();
    const int bar = area->verticalScrollBar()->sizeHint().width();
    const QMargins frame = whole->contentsMargins();
    int height = 0;
    for (const QWidget* group : groups) height += group->sizeHint().height() + gap;
    // What doesn't fit evenly into the columns takes some more.
    resize(mostColumns * WidestGroup() + bar + frame.left() + frame.right(),
           height * 5 / (4 * mostColumns) + foot->sizeHint().height() + frame.top());
}

void KeySheet::ShowKeys()
{
    qDeleteAll(groups);
    groups.clear();
    for (const KeyGroup group : allGroups) groups.push_back(MakeGroup(group));
    Arrange();
}

void KeySheet::resizeEvent(QResizeEvent* event)
{
    WenDialog::resizeEvent(event);
    Arrange();
}

int KeySheet::WidestGroup() const
{
    int widest = 1;
    for (const QWidget* group : groups) widest = std::max(widest, group->sizeHint().width() + gap);
    return widest;
}

void KeySheet::Arrange()
{
    const int room = area->width() - area->verticalScrollBar()->sizeHint().width() + gap;
    const int count = std::clamp(room / WidestGroup(), 1, mostColumns);
    while (QLayoutItem* const column = columns->takeAt(0)) delete column;
    std::vector<int> heights(static_cast<std::size_t>(count));
    for (int column = 0; column < count; ++column) columns->addLayout(new QVBoxLayout, 1);
    for (QWidget* const group : groups) {
        const auto lowest = std::ranges::min_element(heights);
        const auto column = static_cast<int>(lowest - heights.begin());
        *lowest += group->sizeHint().height();
        static_cast<QVBoxLayout*>(columns->itemAt(column)->layout())->addWidget(group);
        group->show();
    }
    for (int column = 0; column < count; ++column)
        static_cast<QVBoxLayout*>(columns->itemAt(column)->layout())->addStretch();
}

QWidget* KeySheet::MakeGroup(KeyGroup group)
{
    auto* const box = new QGroupBox(GroupTitle(group), page);
    auto* const grid = new QGridLayout(box);
    grid->setVerticalSpacing(2);
    grid->setHorizontalSpacing(gap);
    grid->setColumnStretch(1, 1);
    for (const KeyRow& row : KeyTable()) {
        const QString keys = KeysOf(row);
        if (row.group != group || keys.isEmpty()) continue;
        auto* const key = new QLabel(keys);
        key->setFont(GaluFont::MsPGothic9ptBold());
        const int line = grid->rowCount();
        grid->addWidget(key, line, 0);
        grid->addWidget(new QLabel(MenuWords(QString::fromUtf8(row.text))), line, 1);
    }
    return box;
}
