#include "platform/controls/GaluMultiStatusButton.h"

#include "platform/text/QtText.h"

#include <QStyleOptionButton>
#include <QStylePainter>

static constexpr int frameWidth = 3;

GaluMultiStatusButton::GaluMultiStatusButton(std::vector<Status> all, int imageSide,
                                             QWidget* parent)
    : QAbstractButton(parent), statuses(std::move(all))
{
    setIconSize({imageSide, imageSide});
    setFocusPolicy(Qt::StrongFocus);
    SetStatus(0);
}

void GaluMultiStatusButton::SetStatus(int newStatus)
{
    if (newStatus < 0 || newStatus >= static_cast<int>(statuses.size())) return;
    status = newStatus;
    const QString name = QtText(statuses[static_cast<std::size_t>(status)].name);
    setToolTip(name);
    setAccessibleName(name);
    update();
}

void GaluMultiStatusButton::SetFlat(bool isFlat)
{
    flat = isFlat;
    updateGeometry();
    update();
}

void GaluMultiStatusButton::SetBackColor(const QColor& color)
{
    QPalette colors = palette();
    colors.setColor(backgroundRole(), color);
    setPalette(colors);
}

QSize GaluMultiStatusButton::sizeHint() const
{
    const int frame = flat ? 0 : 2 * frameWidth;
    return iconSize() + QSize(frame, frame);
}

void GaluMultiStatusButton::nextCheckState()
{
    SetStatus((status + 1) % static_cast<int>(statuses.size()));
    emit StatusChanged(status);
}

void GaluMultiStatusButton::paintEvent(QPaintEvent*)
{
    QStylePainter painter(this);
    painter.fillRect(rect(), palette().color(backgroundRole()));
    QStyleOptionButton option;
    option.initFrom(this);
    if (!flat) {
        option.state |= isDown() ? QStyle::State_Sunken : QStyle::State_Raised;
        painter.drawControl(QStyle::CE_PushButtonBevel, option);
    }
    QRect place({0, 0}, iconSize());
    place.moveCenter(rect().center());
    statuses[static_cast<std::size_t>(status)].image.paint(&painter, place);
    if (hasFocus()) {
        QStyleOptionFocusRect focus;
        focus.initFrom(this);
        painter.drawPrimitive(QStyle::PE_FrameFocusRect, focus);
    }
}
