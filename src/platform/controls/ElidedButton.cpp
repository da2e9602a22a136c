#include "platform/controls/ElidedButton.h"

#include <QStyleOptionButton>
#include <QStylePainter>

#include <algorithm>

static constexpr int smallestCharacters = 8;

/// An ampersand of the text's own marks no key.
static QString WithoutMnemonic(QString text)
{
    return text.replace(u'&', QStringLiteral("&&"));
}

ElidedButton::ElidedButton(const QString& theWords, QWidget* parent)
    : QPushButton(WithoutMnemonic(theWords), parent), words(theWords)
{
    setAccessibleName(words);
    setAutoDefault(false);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QSize ElidedButton::sizeHint() const
{
    return minimumSizeHint();
}

QSize ElidedButton::minimumSizeHint() const
{
    const QSize whole = QPushButton::sizeHint();
    const int small = fontMetrics().averageCharWidth() * smallestCharacters;
    return {std::min(whole.width(), small), whole.height()};
}

void ElidedButton::paintEvent(QPaintEvent*)
{
    QStyleOptionButton option;
    initStyleOption(&option);
    const int room = style()->subElementRect(QStyle::SE_PushButtonContents, &option, this).width();
    option.text = WithoutMnemonic(fontMetrics().elidedText(words, Qt::ElideRight, room));
    QStylePainter(this).drawControl(QStyle::CE_PushButton, option);
}
