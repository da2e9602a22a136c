#include "platform/controls/WaitMovie.h"

#include <QPainter>
#include <QPainterPath>

#include <cmath>

namespace
{
constexpr int frameTime = 40;
/// The time of one round, in milliseconds.
constexpr int roundTime = 1400;
constexpr QSize movieSize(160, 56);

/// All below paint the moment \p phase (0 to 1) of their round.
void PaintBusy(QPainter& painter, double phase, QColor color)
{
    constexpr int dots = 12;
    constexpr double radius = 20;
    constexpr double dotRadius = 3;
    painter.translate(movieSize.width() / 2.0, movieSize.height() / 2.0);
    for (int dot = 0; dot < dots; ++dot) {
        const double behind = phase - static_cast<double>(dot) / dots;
        color.setAlphaF(static_cast<float>(0.15 + 0.85 * (1 - (behind - std::floor(behind)))));
        painter.setBrush(color);
        painter.drawEllipse(QPointF(0, -radius), dotRadius, dotRadius);
        painter.rotate(360.0 / dots);
    }
}

void PaintFolder(QPainter& painter, QPointF corner, const QColor& color)
{
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    path.addRoundedRect(QRectF(corner, QSizeF(16, 8)), 2, 2);
    path.addRoundedRect(QRectF(corner + QPointF(0, 4), QSizeF(38, 26)), 2, 2);
    painter.setBrush(color);
    painter.drawPath(path);
}

void PaintPage(QPainter& painter, QPointF middle)
{
    QRectF page(0, 0, 16, 20);
    page.moveCenter(middle);
    painter.setPen(QColor(0x80, 0x80, 0x80));
    painter.setBrush(Qt::white);
    painter.drawRect(page);
    for (int line = 1; line <= 3; ++line) {
        const double y = page.top() + line * 5;
        painter.drawLine(QPointF(page.left() + 3, y), QPointF(page.right() - 3, y));
    }
}

void PaintCopying(QPainter& painter, double phase, const QColor& color)
{
    PaintFolder(painter, {4, 22}, color);
    PaintFolder(painter, {118, 22}, color);
    PaintPage(painter, {24 + 112 * phase, 34 - 22 * std::sin(phase * std::acos(-1.0))});
}

void PaintDeleting(QPainter& painter, double phase, const QColor& color)
{
    painter.setOpacity(1 - phase * phase);
    PaintPage(painter, {80, 14 + 20 * phase});
    painter.setOpacity(1);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawPolygon(QPolygonF{{62, 30}, {98, 30}, {94, 54}, {66, 54}});
}
} // namespace

WaitMovie::WaitMovie(QWidget* parent) : QWidget(parent)
{
    frames.setInterval(frameTime);
    connect(&frames, &QTimer::timeout, this, QOverload<>::of(&QWidget::update));
}

void WaitMovie::SetKind(int newKind)
{
    kind = newKind;
    update();
}

QSize WaitMovie::sizeHint() const
{
    return movieSize;
}

void WaitMovie::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.translate((width() - movieSize.width()) / 2.0, (height() - movieSize.height()) / 2.0);
    const double phase = static_cast<double>(sinceShown.elapsed() % roundTime) / roundTime;
    const QColor color = palette().color(QPalette::Highlight);
    if (kind == Copying) {
        PaintCopying(painter, phase, color);
    } else if (kind == Deleting) {
        PaintDeleting(painter, phase, color);
    } else {
        PaintBusy(painter, phase, color);
    }
}

void WaitMovie::showEvent(QShowEvent*)
{
    sinceShown.start();
    frames.start();
}

void WaitMovie::hideEvent(QHideEvent*)
{
    frames.stop();
}
