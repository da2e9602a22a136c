#include "windows/dialogs/PlaceBeside.h"

#include <algorithm>

QPoint PlaceBeside(const QRect& seen, QSize size, const QRect& screen)
{
    const int right = screen.right() + 1 - size.width();
    const int bottom = screen.bottom() + 1 - size.height();
    const auto within = [&](int x, int y) {
        return QPoint(std::clamp(x, screen.left(), std::max(screen.left(), right)),
                      std::clamp(y, screen.top(), std::max(screen.top(), bottom)));
    };
    const int middleX = seen.center().x() - size.width() / 2;
    const int middleY = seen.center().y() - size.height() / 2;
    const QPoint places[] = {within(middleX, seen.bottom() + 1),
                             within(seen.right() + 1, middleY),
                             within(seen.left() - size.width(), middleY),
                             within(middleX, seen.top() - size.height()),
                             within(right, bottom),
                             within(screen.left(), bottom),
                             within(right, screen.top()),
                             screen.topLeft()};
    const auto covered = [&](QPoint place) {
        const QRect both = QRect(place, size).intersected(seen);
        return both.width() * both.height();
    };
    return *std::ranges::min_element(places, {}, covered);
}
