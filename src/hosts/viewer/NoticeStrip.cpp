#include "hosts/viewer/NoticeStrip.h"

#include "platform/text/QtText.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

NoticeStrip::NoticeStrip() : action(new QPushButton), text(new QLabel)
{
    setObjectName(QStringLiteral("notice"));
    setStyleSheet(QStringLiteral(
        "#notice { background: #fff4d6; border-bottom: 1px solid #e0c36c; } QLabel { color: "
        "#4a3800; }"));
    text->setTextFormat(Qt::PlainText);
    text->setWordWrap(true);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    auto* close = new QPushButton(QStringLiteral("閉じる"));
    connect(close, &QPushButton::clicked, this, [this] {
        hide();
        emit Closed();
    });
    connect(action, &QPushButton::clicked, this, &NoticeStrip::ActionRequested);
    // A click leaves the keys to the photographs.
    action->setFocusPolicy(Qt::TabFocus);
    action->hide();
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(10, 4, 6, 4);
    row->addWidget(text, 1);
    row->addWidget(action);
    row->addWidget(close);
    hide();
}

void NoticeStrip::Tell(const CStringArray& sentences)
{
    QStringList lines;
    for (const CString& sentence : sentences) lines << QtText(sentence);
    text->setText(lines.join(QLatin1Char('\n')));
    setVisible(!lines.isEmpty());
}

void NoticeStrip::SetAction(const QString& name)
{
    action->setText(name);
    action->show();
}
