#include "windows/zoom/ZoomRules.h"

#include <QTransform>

#include <algorithm>

namespace
{
constexpr int smallestWidth = 247;
constexpr int smallestHeight = 101;
constexpr QSize usualSize(800, 600);
constexpr QPoint cascade(50, 25);
constexpr int brightnessOfPosition = -20;
constexpr int fullTurn = 360;

std::size_t Columns(std::size_t count)
{
    return count < 3 ? 1 : 2;
}

std::size_t Rows(std::size_t count)
{
    if (count < 2) return 1;
    return count < 5 ? 2 : 3;
}
} // namespace

ZoomRules::Answer ZoomRules::AnswerTo(std::span<const Window> windows, const CString& path)
{
    const auto same = std::ranges::find_if(
        windows, [&path](const Window& window) { return EqualNoCase(window.path, path); });
    if (same != windows.end()) {
        return {Answer::Raise, static_cast<std::size_t>(same - windows.begin())};
    }
    const std::size_t loose = FirstLoose(windows);
    if (loose < windows.size()) return {Answer::Retarget, loose};
    if (windows.size() >= mostWindows) return {Answer::Refuse, 0};
    return {Answer::Create, windows.size()};
}

std::size_t ZoomRules::FirstLoose(std::span<const Window> windows)
{
    const auto loose = std::ranges::find(windows, false, &Window::isFixed);
    return static_cast<std::size_t>(loose - windows.begin());
}

QSize ZoomRules::UsableSize(QSize remembered)
{
    const bool isUsable =
        remembered.width() >= smallestWidth && remembered.height() >= smallestHeight;
    return isUsable ? remembered : usualSize;
}

QRect ZoomRules::NewPlace(std::size_t index, int panelTop, QSize size, const QRect& screen)
{
    const QPoint step = cascade * static_cast<int>(index);
    return KeptOn(screen, {QPoint(screen.left() + step.x(), panelTop + step.y()), size});
}

QRect ZoomRules::KeptOn(const QRect& screen, const QRect& place)
{
    QRect kept(place.topLeft(), place.size().boundedTo(screen.size()));
    kept.moveRight(std::min(kept.right(), screen.right()));
    kept.moveBottom(std::min(kept.bottom(), screen.bottom()));
    kept.moveLeft(std::max(kept.left(), screen.left()));
    kept.moveTop(std::max(kept.top(), screen.top()));
    return kept;
}

std::vector<QRect> ZoomRules::Arranged(std::size_t count, const QRect& screen)
{
    const std::size_t rows = Rows(count);
    const QSize size(screen.width() / static_cast<int>(Columns(count)),
                     screen.height() / static_cast<int>(rows));
    std::vector<QRect> places;
    for (std::size_t i = 0; i < count; ++i) {
        const QPoint corner(static_cast<int>(i / rows) * size.width(),
                            static_cast<int>(i % rows) * size.height());
        places.emplace_back(screen.topLeft() + corner, size);
    }
    return places;
}

int ZoomRules::BrightnessAt(int position)
{
    return position * brightnessOfPosition;
}

int ZoomRules::Turned(int rotation, int angle)
{
    return (rotation + angle) % fullTurn;
}

QRect ZoomRules::TurnedBack(const QRect& part, QSize size, int rotation)
{
    const QTransform back = QTransform().rotate(-rotation);
    const QPointF corner = back.mapRect(QRectF({0, 0}, size)).topLeft();
    return back.mapRect(QRectF(part)).translated(-corner).toRect();
}
