#include "windows/comments/CommentEntry.h"

#include "platform/controls/ElidedButton.h"
#include "platform/controls/ToolTipText.h"
#include "platform/text/QtText.h"
#include "windows/comments/CommentTexts.h"
#include "windows/dialogs/CommentEdit.h"

#include <QAction>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>

#include <algorithm>

namespace
{
constexpr int textColumns = 3;
constexpr int lines = 2;

/// A text of several lines in one.
QString OneLine(const CString& text)
{
    return QtText(text).replace(u'\n', QStringLiteral(" ⏎ "));
}
} // namespace

CommentEntry::CommentEntry() : subject(new QLabel), edit(new CommentEdit), texts(new QWidget)
{
    setObjectName(QStringLiteral("commentEntry"));
    setAutoFillBackground(true);
    subject->setTextFormat(Qt::PlainText);
    subject->setWordWrap(true);
    const int frame =
        2 * edit->frameWidth() + static_cast<int>(2 * edit->document()->documentMargin());
    edit->setMinimumHeight(lines * edit->fontMetrics().lineSpacing() + frame);
    edit->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
    auto* const accept = new QPushButton(QStringLiteral("決定（Enter）"));
    auto* const giveUp = new QPushButton(QStringLiteral("やめる（Esc）"));
    accept->setAutoDefault(false);
    giveUp->setAutoDefault(false);
    connect(edit, &CommentEdit::Ended, this, &CommentEntry::Accept);
    connect(accept, &QPushButton::clicked, this, &CommentEntry::Accept);
    connect(giveUp, &QPushButton::clicked, this, &CommentEntry::GiveUp);
    auto* const grid = new QGridLayout(this);
    grid->setContentsMargins(8, 6, 8, 6);
    grid->addWidget(subject, 0, 0, 1, 2);
    grid->addWidget(edit, 1, 0, 2, 1);
    grid->addWidget(accept, 1, 1);
    grid->addWidget(giveUp, 2, 1);
    grid->addWidget(texts, 3, 0, 1, 2);
    grid->setColumnStretch(0, 1);
    AddTextKeys();
    hide();
}

void CommentEntry::AddTextKeys()
{
    for (int place = 0; place < CommentTexts::mostByKey; ++place) {
        auto* const take = new QAction(this);
        take->setShortcut(QKeySequence(Qt::ALT | static_cast<Qt::Key>(Qt::Key_1 + place)));
        take->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        connect(take, &QAction::triggered, this, [this, place] { TakeText(place); });
        addAction(take);
    }
}

void CommentEntry::Begin(const QString& words, const CString& comment)
{
    before = comment;
    subject->setText(QStringLiteral("コメント：%1").arg(words));
    edit->setPlainText(QtText(comment));
    edit->moveCursor(QTextCursor::End);
    ShowTexts();
    show();
}

void CommentEntry::TakeFocus()
{
    edit->setFocus();
}

/// The texts with their keys, three in a line.
void CommentEntry::ShowTexts()
{
    delete texts->layout();
    qDeleteAll(texts->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly));
    auto* const grid = new QGridLayout(texts);
    grid->setContentsMargins({});
    grid->setSpacing(4);
    const CStringArray all = CommentTexts::All();
    for (int place = 0; place < std::min(all.GetSize(), CommentTexts::mostByKey); ++place) {
        auto* const button =
            new ElidedButton(QStringLiteral("Alt+%1　%2").arg(place + 1).arg(OneLine(all[place])));
        button->setToolTip(ToolTipText(all[place]));
        button->setFocusPolicy(Qt::TabFocus);
        connect(button, &QPushButton::clicked, this, [this, place] { TakeText(place); });
        grid->addWidget(button, place / textColumns, place % textColumns);
    }
    for (int column = 0; column < textColumns; ++column) grid->setColumnStretch(column, 1);
    if (all.IsEmpty()) {
        auto* const hint = new QLabel(QStringLiteral(
            "書いたコメントは、次から定型文としてここに並び、Alt+1～9 で使えます。"));
        hint->setWordWrap(true);
        grid->addWidget(hint, 0, 0, 1, textColumns);
    }
}

void CommentEntry::TakeText(int place)
{
    const CStringArray all = CommentTexts::All();
    if (place < all.GetSize()) edit->insertPlainText(QtText(all[place]));
    edit->setFocus();
}

CString CommentEntry::Text() const
{
    return FromQtText(edit->toPlainText());
}

bool CommentEntry::IsChanged() const
{
    return !isHidden() && Text() != before;
}

void CommentEntry::Accept()
{
    Finish();
    emit Left();
}

void CommentEntry::Finish()
{
    if (isHidden()) return;
    const bool changed = IsChanged();
    const CString text = Text();
    hide();
    if (changed) emit Written(text);
}

void CommentEntry::GiveUp()
{
    hide();
    emit Left();
}

void CommentEntry::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape) {
        GiveUp();
    } else {
        QWidget::keyPressEvent(event);
    }
}
