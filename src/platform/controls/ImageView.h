#pragma once

#include <QPointF>
#include <QRectF>
#include <QSize>

/// Where a picture stands in a window and how large: the arithmetic of LumImgWnd. All places and
/// lengths are device pixels of the window, so that zoom 1 shows each pixel of the picture as one.
/// A picture smaller than the window stands in its middle; a larger one leaves no edge of it bare.
class ImageView
{
public:
    static constexpr double largestZoom = 32;
    /// That many steps of the wheel double the size.
    static constexpr int stepsToDouble = 4;

    /// Shows a picture of this size fitted. An empty size means none.
    void SetPicture(QSize size);
    /// Shows another picture of this size in the present view: fitted if the one before is, else at
    /// its zoom and with the same place in the middle.
    void ExchangePicture(QSize size);
    /// A fitted picture stays fitted, of another one the middle stays in the middle.
    void SetWindow(QSize size);

    /// As large as the window holds.
    void Fit();
    /// Zooms to \p zoom, within the limits. What stands at \p anchor stays there, as far as the
    /// window's edges let it.
    void ZoomTo(double zoom, QPointF anchor);
    /// Zooms by steps of the wheel, up (positive) or down. A step that would pass the fitted size
    /// or 100 % stops there.
    void ZoomBy(double steps, QPointF anchor);
    /// From fitted to 100 % at \p anchor, from anything else to fitted.
    void Toggle(QPointF anchor);
    /// Moves the picture by \p delta, as far as its edges let it. False when it didn't move.
    bool Pan(QPointF delta);

    bool IsFit() const { return fit; }
    double Zoom() const { return zoom; }
    /// Some of the picture is outside of the window.
    bool IsLarger() const;
    /// The place of the whole picture; its corner is a whole pixel.
    QRectF Placement() const;
    /// What of the picture can be seen, in its pixels.
    QRectF Visible() const;

private:
    double FitZoom() const;
    double SmallestZoom() const;
    void KeepEdges();

    QSizeF picture;
    QSizeF window;
    QPointF corner;
    double zoom = 1;
    bool fit = true;
};
