#include "windows/position/DialogPlace.h"

#include <algorithm>

QRect ShownPlace(const QRect& stored, const QList<QRect>& screens)
{
    const bool isTooSmall = stored.width() < smallestPositionWindow.width() ||
                            stored.height() < smallestPositionWindow.height();
    QRect place(QPoint(std::max(0, stored.x()), std::max(0, stored.y())),
                isTooSmall ? smallestPositionWindow : stored.size());
    if (screens.isEmpty()) return place;
    // The screen that it was on may be gone.
    const auto seen = std::ranges::find_if(
        screens, [&place](const QRect& screen) { return screen.intersects(place); });
    const QRect& screen = seen == screens.end() ? screens.front() : *seen;
    place.setSize(place.size().boundedTo(screen.size()));
    place.moveRight(std::min(place.right(), screen.right()));
    place.moveBottom(std::min(place.bottom(), screen.bottom()));
    place.moveLeft(std::max(place.left(), screen.left()));
    place.moveTop(std::max(place.top(), screen.top()));
    return place;
}
