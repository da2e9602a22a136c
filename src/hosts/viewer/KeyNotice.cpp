#include "hosts/viewer/KeyNotice.h"

#include "photos/LabelSlots.h"
#include "platform/text/QtText.h"
#include "review/LabelCaption.h"
#include "windows/keys/KeySet.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

/// How often the buttons must fit into the strip so that words stand beside them.
static constexpr int widthForOneRow = 2;

KeyNotice::KeyNotice() : text(new QLabel), row(new QBoxLayout(QBoxLayout::LeftToRight, this))
{
    setObjectName(QStringLiteral("keyNotice"));
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::ToolTipBase);
    text->setForegroundRole(QPalette::ToolTipText);
    text->setTextFormat(Qt::PlainText);
    text->setWordWrap(true);
    auto* const old = new QPushButton(QStringLiteral("以前の版のキーを使う"));
    auto* const all = new QPushButton(QStringLiteral("キーの一覧"));
    auto* const close = new QPushButton(QStringLiteral("閉じる"));
    connect(old, &QPushButton::clicked, this, [this] {
        emit OldKeysWanted();
        hide();
    });
    connect(all, &QPushButton::clicked, this, &KeyNotice::SheetWanted);
    connect(close, &QPushButton::clicked, this, &QWidget::hide);
    auto* const buttons = new QHBoxLayout;
    buttons->addStretch();
    for (QPushButton* const button : {old, all, close}) {
        button->setAutoDefault(false);
        buttons->addWidget(button);
    }
    row->setContentsMargins(10, 4, 6, 4);
    row->addWidget(text, 1);
    row->addLayout(buttons);
    hide();
}

/// In a narrow window the buttons stand below the words.
void KeyNotice::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    const int buttons = row->itemAt(1)->sizeHint().width();
    row->setDirection(width() < widthForOneRow * buttons ? QBoxLayout::TopToBottom
                                                         : QBoxLayout::LeftToRight);
}

void KeyNotice::Tell()
{
    QStringList keys;
    for (const unsigned int label : {LabelOk, LabelNg1, LabelNg2, LabelNg3, LabelFree}) {
        keys << QStringLiteral("%1：%2").arg(QtText(LabelBadge(label)),
                                             KeyText(LabelCommandOf(label)));
    }
    keys << QStringLiteral("すべて外す：%1").arg(KeyText(FrameCommand::RemoveLabels));
    text->setText(QStringLiteral("付箋のキー　%1\n以前の版　OK：1、NG1～NG3：2～4、任意：5、"
                                 "すべて外す：0")
                      .arg(keys.join(QStringLiteral("、"))));
    show();
}
