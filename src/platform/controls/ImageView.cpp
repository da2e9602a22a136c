#include "platform/controls/ImageView.h"

#include <algorithm>
#include <cmath>

namespace
{
/// Zooms this near to each other, in proportion, differ by nothing but rounding.
constexpr double same = 1e-6;

bool IsSame(double left, double right)
{
    return std::abs(left - right) <= same * right;
}

double KeptEdge(double edge, double extent, double room)
{
    if (extent <= room) return (room - extent) / 2;
    return std::clamp(edge, room - extent, 0.0);
}
} // namespace

void ImageView::SetPicture(QSize size)
{
    picture = size.expandedTo({0, 0});
    Fit();
}

void ImageView::ExchangePicture(QSize size)
{
    if (fit || picture.isEmpty()) {
        SetPicture(size);
        return;
    }
    const QPointF middle = QRectF({0, 0}, window).center();
    const QPointF held = (middle - corner) / zoom;
    const double across = held.x() / picture.width();
    const double down = held.y() / picture.height();
    picture = size.expandedTo({0, 0});
    zoom = std::max(zoom, SmallestZoom());
    corner = middle - QPointF(across * picture.width(), down * picture.height()) * zoom;
    KeepEdges();
}

void ImageView::SetWindow(QSize size)
{
    const QSizeF grown = QSizeF(size) - window;
    window = size;
    if (fit || zoom < SmallestZoom()) {
        Fit();
        return;
    }
    corner += QPointF(grown.width(), grown.height()) / 2;
    KeepEdges();
}

void ImageView::Fit()
{
    fit = true;
    zoom = FitZoom();
    KeepEdges();
}

void ImageView::ZoomTo(double wanted, QPointF anchor)
{
    const QPointF held = (anchor - corner) / zoom;
    zoom = std::clamp(wanted, SmallestZoom(), largestZoom);
    fit = IsSame(zoom, FitZoom());
    corner = anchor - held * zoom;
    KeepEdges();
}

void ImageView::ZoomBy(double steps, QPointF anchor)
{
    double wanted = zoom * std::exp2(steps / stepsToDouble);
    for (const double stop : {1.0, FitZoom(), largestZoom}) {
        const bool passes = (zoom < stop) != (wanted < stop) && !IsSame(zoom, stop);
        if (passes || IsSame(wanted, stop)) wanted = stop;
    }
    ZoomTo(wanted, anchor);
}

void ImageView::Toggle(QPointF anchor)
{
    if (fit) {
        ZoomTo(1, anchor);
    } else {
        Fit();
    }
}

bool ImageView::Pan(QPointF delta)
{
    const QPointF before = corner;
    corner += delta;
    KeepEdges();
    return corner != before;
}

bool ImageView::IsLarger() const
{
    const QSizeF extent = picture * zoom;
    return extent.width() > window.width() + same || extent.height() > window.height() + same;
}

QRectF ImageView::Placement() const
{
    return {QPointF(corner.toPoint()), picture * zoom};
}

QRectF ImageView::Visible() const
{
    const QRectF place = Placement();
    const QRectF seen = place.intersected(QRectF({0, 0}, window));
    return {(seen.topLeft() - place.topLeft()) / zoom, seen.size() / zoom};
}

double ImageView::FitZoom() const
{
    if (picture.isEmpty() || window.isEmpty()) return 1;
    return std::min(
        {window.width() / picture.width(), window.height() / picture.height(), largestZoom});
}

double ImageView::SmallestZoom() const
{
    return std::min(FitZoom(), 1.0);
}

void ImageView::KeepEdges()
{
    corner = {KeptEdge(corner.x(), picture.width() * zoom, window.width()),
              KeptEdge(corner.y(), picture.height() * zoom, window.height())};
}
