#include "windows/setup/ToviColorButton.h"

#include <QPainter>
#include <QStyleOptionButton>

namespace
{
constexpr int pictureSide = 24;
constexpr int frameWidth = 3;
} // namespace

ToviColorButton::ToviColorButton(const QIcon& picture)
{
    setIcon(picture);
    setEnabled(false);
    setFocusPolicy(Qt::NoFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize ToviColorButton::sizeHint() const
{
    constexpr int side = pictureSide + 4 * frameWidth;
    return {side, side};
}

void ToviColorButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    QStyleOptionButton option;
    option.initFrom(this);
    style()->drawPrimitive(QStyle::PE_PanelButtonCommand, &option, &painter, this);
    const QRect inside = rect().adjusted(frameWidth, frameWidth, -frameWidth, -frameWidth);
    painter.fillRect(inside, Qt::white);
    // In full colour, though the button is disabled.
    QRect place(QPoint(), QSize(pictureSide, pictureSide));
    place.moveCenter(inside.center());
    icon().paint(&painter, place);
}
