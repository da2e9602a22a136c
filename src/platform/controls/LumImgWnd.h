#pragma once

#include "platform/controls/ImageView.h"
#include "platform/pictures/ReducedImages.h"
#include "platform/pictures/ToneCurve.h"
#include "platform/text/Export.h"

#include <QWidget>

#include <optional>

class LumImage;
class QSinglePointEvent;

/// Shows one picture, smoothly scaled. The wheel zooms about the cursor, dragging moves what is
/// larger than the window, a double click leads from fitted to 100 % and back. By key: + and -
/// zoom, * shows 100 %, / fits, the arrow keys move a picture larger than the window; all other
/// keys go to the parent.
class TOVI_EXPORT LumImgWnd : public QWidget
{
    Q_OBJECT

public:
    /// The mouse zooms and moves the picture. With any other command it only reports clicks.
    static constexpr int commandMove = 0;

    explicit LumImgWnd(QWidget* parent = nullptr);

    /// Shows \p image in a new view. Null or an empty picture: as SetDisableImage. Shares the
    /// pixels and doesn't keep the pointer.
    void SetImage(const LumImage* image);
    /// Shows \p image, another version of the picture on show, in the present view if it has the
    /// same size, else as SetImage.
    void RefreshImage(const LumImage* image);
    /// The same with pictures whose reduced copies may have been made before. \p keepsView: where
    /// the one before was looked at, this one is too.
    void SetImages(ReducedImages newImages, bool keepsView = false);
    void RefreshImages(ReducedImages newImages);
    /// Shows \p pixels, which are sharper, where \p place of the picture (in its pixels) is to be
    /// seen, until there is another picture.
    void SetPart(const QImage& pixels, const QRect& place);
    /// Draws the picture, and all that follow, with their colours sent through \p curve.
    void SetTones(const ToneCurve& curve);
    /// Shows nothing.
    void SetDisableImage();
    /// What stands in the window while there is no picture; nothing at first.
    void SetNote(const QString& text);
    /// What is told of the picture on show, at its foot, until there is another one; empty for
    /// nothing.
    void SetMark(const QString& text);
    /// True while a picture is on show.
    bool IsEnableImage() const { return !images.IsNull(); }

    /// Draws reduced pictures quickly (\p fast) or, as at first, with every pixel weighed in.
    void SetDrawFast(bool fast);
    /// What the mouse does: see commandMove, the command at first.
    void SetCommand(int newCommand);
    /// Whether a double click zooms, as at first; it is reported either way.
    void SetDoubleClickZoom(bool zooms) { doubleClickZooms = zooms; }
    /// What the keys of the same effect do.
    void ZoomBy(double steps);
    void ShowFullSize();
    void ShowFitted();
    /// Lets go of the point that the user drags.
    void ExecClearAnchor();

    /// The view of the picture in the window within its frame, in device pixels.
    const ImageView& View() const { return view; }

    /// For all windows: a picture starts out as large as its window, not at 100 %.
    static bool m_zoomIsViewport;

    QSize sizeHint() const override;

signals:
    /// Another part of a picture is to be seen, or at another zoom.
    void ViewChanged();
    /// The left button went down.
    void Clicked();
    void DoubleClicked();
    /// The right button went down, or the menu key at the picture.
    void RightClicked();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    QRect Inside() const;
    QSize DeviceSize() const;
    QPointF PlaceOf(const QSinglePointEvent& event) const;
    QPointF Middle() const;
    bool IsMovable() const { return IsEnableImage() && command == commandMove; }
    bool OnZoomKey(int key);
    bool OnMoveKey(int key);
    void ShowView();
    QImage Drawn();
    void DrawPart(QPainter& painter, const QRect& window);
    void DrawMark(QPainter& painter) const;

    ReducedImages images;
    QString note;
    QString mark;
    ReducedImages part;
    QRect partPlace;
    std::optional<ToneCurve> tones;
    ImageView view;
    /// What the window shows in its present view; null when that has changed.
    QImage drawn;
    /// Where the point that is dragged was seen last, in device pixels.
    std::optional<QPointF> anchor;
    int command = commandMove;
    bool drawFast = false;
    bool doubleClickZooms = true;
};
