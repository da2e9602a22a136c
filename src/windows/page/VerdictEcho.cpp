#include "windows/page/VerdictEcho.h"

#include <QAccessibleWidget>
#include <QPainter>

#include <algorithm>
#include <chrono>

using namespace std::chrono_literals;

namespace
{
constexpr auto shownFor = 1s;
constexpr double fontScale = 2;
constexpr QColor ground(32, 32, 32, 215);
constexpr double corner = 8;

/// Screen readers speak an alert as soon as it shows.
QAccessibleInterface* MakeAlert(const QString&, QObject* object)
{
    auto* const echo = qobject_cast<VerdictEcho*>(object);
    return echo == nullptr ? nullptr : new QAccessibleWidget(echo, QAccessible::AlertMessage);
}
} // namespace

VerdictEcho::VerdictEcho(QWidget* parent) : QLabel(parent)
{
    static const bool isKnown = (QAccessible::installFactory(MakeAlert), true);
    Q_UNUSED(isKnown);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setTextFormat(Qt::PlainText);
    setAlignment(Qt::AlignCenter);
    QFont large = font();
    large.setPointSizeF(large.pointSizeF() * fontScale);
    large.setBold(true);
    setFont(large);
    setContentsMargins(18, 8, 18, 8);
    QPalette colors = palette();
    colors.setColor(QPalette::WindowText, Qt::white);
    setPalette(colors);
    end.setSingleShot(true);
    connect(&end, &QTimer::timeout, this, &QWidget::hide);
    hide();
}

void VerdictEcho::Tell(const QString& words, const QRect& place)
{
    // What comes anew is spoken anew.
    hide();
    setText(words);
    setAccessibleName(words);
    QRect over({}, sizeHint().boundedTo(parentWidget()->size()));
    over.moveCenter(place.center());
    const QRect all = parentWidget()->rect();
    over.moveLeft(std::clamp(over.left(), 0, all.width() - over.width()));
    over.moveTop(std::clamp(over.top(), 0, all.height() - over.height()));
    setGeometry(over);
    show();
    raise();
    QAccessibleEvent spoken(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&spoken);
    end.start(shownFor);
}

void VerdictEcho::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ground);
    painter.drawRoundedRect(rect(), corner, corner);
    painter.end();
    QLabel::paintEvent(event);
}
