#include "platform/controls/LumImgWnd.h"

#include "platform/pictures/LumPicture.h"
#include "platform/pictures/PixelTones.h"

#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>
#include <utility>

bool LumImgWnd::m_zoomIsViewport = true;

namespace
{
constexpr double wheelStep = 120;
/// The width of the frame of the focus.
constexpr int focusFrame = 2;
/// The part of the window by which an arrow key moves.
constexpr double keyMove = 0.125;

/// Draws the part of the picture that can be seen. \p source is the picture or a reduced copy of
/// it, \p place the whole picture's place.
void DrawVisible(QPainter& painter, const QRect& window, const QRectF& place, const QImage& source)
{
    const double scaleX = place.width() / source.width();
    const double scaleY = place.height() / source.height();
    const QRectF visible = place.intersected(window);
    const QRectF wanted((visible.left() - place.left()) / scaleX,
                        (visible.top() - place.top()) / scaleY, visible.width() / scaleX,
                        visible.height() / scaleY);
    // One more pixel around, which the smoothing at the edges looks at.
    const QRect piece = wanted.toAlignedRect().adjusted(-1, -1, 1, 1).intersected(source.rect());
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(QRectF(place.left() + piece.left() * scaleX,
                             place.top() + piece.top() * scaleY, piece.width() * scaleX,
                             piece.height() * scaleY),
                      source.copy(piece));
}
} // namespace

LumImgWnd::LumImgWnd(QWidget* parent) : QWidget(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAccessibleName(QStringLiteral("画像"));
}

void LumImgWnd::SetImage(const LumImage* image)
{
    SetImages(ReducedImages(image != nullptr ? LumPixels::Of(*image) : QImage()));
}

void LumImgWnd::SetImages(ReducedImages newImages, bool keepsView)
{
    ExecClearAnchor();
    mark.clear();
    images = std::move(newImages);
    part = ReducedImages();
    view.SetWindow(DeviceSize());
    if (keepsView) {
        view.ExchangePicture(images.Size());
    } else {
        view.SetPicture(images.Size());
        if (!m_zoomIsViewport) view.ZoomTo(1, Middle());
    }
    ShowView();
}

void LumImgWnd::SetPart(const QImage& pixels, const QRect& place)
{
    part = ReducedImages(pixels, place.size());
    partPlace = place;
    drawn = QImage();
    update();
}

void LumImgWnd::SetTones(const ToneCurve& curve)
{
    tones = curve;
    if (curve == BrightnessCurve(0)) tones.reset();
    drawn = QImage();
    update();
}

void LumImgWnd::RefreshImage(const LumImage* image)
{
    RefreshImages(ReducedImages(image != nullptr ? LumPixels::Of(*image) : QImage()));
}

void LumImgWnd::RefreshImages(ReducedImages newImages)
{
    if (newImages.IsNull() || newImages.Size() != images.Size()) {
        SetImages(std::move(newImages));
        return;
    }
    images = std::move(newImages);
    part = ReducedImages();
    ShowView();
}

void LumImgWnd::SetNote(const QString& text)
{
    if (std::exchange(note, text) != text && images.IsNull()) ShowView();
}

void LumImgWnd::SetMark(const QString& text)
{
    if (std::exchange(mark, text) != text) update();
}

void LumImgWnd::SetDisableImage()
{
    SetImage(nullptr);
}

void LumImgWnd::SetDrawFast(bool fast)
{
    drawFast = fast;
    ShowView();
}

void LumImgWnd::SetCommand(int newCommand)
{
    command = newCommand;
    ExecClearAnchor();
    ShowView();
}

void LumImgWnd::ZoomBy(double steps)
{
    view.ZoomBy(steps, Middle());
    ShowView();
}

void LumImgWnd::ShowFullSize()
{
    view.ZoomTo(1, Middle());
    ShowView();
}

void LumImgWnd::ShowFitted()
{
    view.Fit();
    ShowView();
}

void LumImgWnd::ExecClearAnchor()
{
    anchor.reset();
}

QSize LumImgWnd::sizeHint() const
{
    return {320, 240};
}

void LumImgWnd::paintEvent(QPaintEvent*)
{
    const QSize size = DeviceSize();
    if (drawn.size() != size) {
        view.SetWindow(size);
        drawn = Drawn();
        drawn.setDevicePixelRatio(devicePixelRatioF());
    }
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(hasFocus() ? QPalette::Highlight : backgroundRole()));
    painter.drawImage(Inside().topLeft(), drawn);
    if (!mark.isEmpty() && IsEnableImage()) DrawMark(painter);
}

void LumImgWnd::DrawMark(QPainter& painter) const
{
    const QRect line = Inside().adjusted(0, Inside().height() - fontMetrics().height() - 4, 0, 0);
    painter.fillRect(line, palette().color(QPalette::ToolTipBase));
    painter.setPen(palette().color(QPalette::ToolTipText));
    painter.drawText(line, Qt::AlignCenter, mark);
}

void LumImgWnd::resizeEvent(QResizeEvent*)
{
    view.SetWindow(DeviceSize());
    ShowView();
}

void LumImgWnd::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::RightButton) emit RightClicked();
    if (event->button() != Qt::LeftButton) return;
    // First, since whoever hears of it may clear the anchor.
    emit Clicked();
    if (IsMovable()) anchor = PlaceOf(*event);
}

void LumImgWnd::mouseMoveEvent(QMouseEvent* event)
{
    if (!anchor) return;
    const QPointF place = PlaceOf(*event);
    const bool moved = view.Pan(place - *anchor);
    anchor = place;
    if (moved) ShowView();
}

void LumImgWnd::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) ExecClearAnchor();
}

void LumImgWnd::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) return;
    ExecClearAnchor();
    emit DoubleClicked();
    if (!doubleClickZooms || !IsMovable()) return;
    view.Toggle(PlaceOf(*event));
    ShowView();
}

void LumImgWnd::contextMenuEvent(QContextMenuEvent* event)
{
    if (event->reason() == QContextMenuEvent::Keyboard) emit RightClicked();
}

void LumImgWnd::wheelEvent(QWheelEvent* event)
{
    if (!IsMovable() || event->angleDelta().y() == 0) {
        event->ignore();
        return;
    }
    view.ZoomBy(event->angleDelta().y() / wheelStep, PlaceOf(*event));
    ShowView();
}

void LumImgWnd::keyPressEvent(QKeyEvent* event)
{
    const bool plain = !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier));
    const bool isOurs =
        plain && IsMovable() && (OnZoomKey(event->key()) || OnMoveKey(event->key()));
    if (!isOurs) event->ignore();
}

void LumImgWnd::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::PaletteChange) ShowView();
    QWidget::changeEvent(event);
}

/// Where the picture may be: the frame of the focus stands around it, never on it.
QRect LumImgWnd::Inside() const
{
    return rect().adjusted(focusFrame, focusFrame, -focusFrame, -focusFrame);
}

QSize LumImgWnd::DeviceSize() const
{
    return (QSizeF(Inside().size()) * devicePixelRatioF()).toSize().expandedTo({0, 0});
}

/// The place of the mouse in the view.
QPointF LumImgWnd::PlaceOf(const QSinglePointEvent& event) const
{
    return (event.position() - Inside().topLeft()) * devicePixelRatioF();
}

QPointF LumImgWnd::Middle() const
{
    return QRectF({0, 0}, DeviceSize()).center();
}

bool LumImgWnd::OnZoomKey(int key)
{
    if (key == Qt::Key_Plus) {
        ZoomBy(1);
    } else if (key == Qt::Key_Minus) {
        ZoomBy(-1);
    } else if (key == Qt::Key_Asterisk) {
        ShowFullSize();
    } else if (key == Qt::Key_Slash) {
        ShowFitted();
    } else {
        return false;
    }
    return true;
}

/// False when the whole picture is in sight: the arrow keys then belong to the parent.
bool LumImgWnd::OnMoveKey(int key)
{
    if (!view.IsLarger()) return false;
    const QSizeF step = QSizeF(DeviceSize()) * keyMove;
    if (key == Qt::Key_Left) {
        view.Pan({step.width(), 0});
    } else if (key == Qt::Key_Right) {
        view.Pan({-step.width(), 0});
    } else if (key == Qt::Key_Up) {
        view.Pan({0, step.height()});
    } else if (key == Qt::Key_Down) {
        view.Pan({0, -step.height()});
    } else {
        return false;
    }
    ShowView();
    return true;
}

void LumImgWnd::ShowView()
{
    drawn = QImage();
    if (IsMovable() && view.IsLarger()) {
        setCursor(Qt::OpenHandCursor);
    } else {
        unsetCursor();
    }
    update();
    emit ViewChanged();
}

QImage LumImgWnd::Drawn()
{
    QImage frame(DeviceSize(), QImage::Format_RGB32);
    frame.fill(palette().color(backgroundRole()));
    if (frame.isNull()) return frame;
    if (images.IsNull()) {
        frame.setDevicePixelRatio(devicePixelRatioF());
        QPainter painter(&frame);
        painter.setFont(font());
        painter.setPen(palette().color(foregroundRole()));
        painter.drawText(QRect({0, 0}, Inside().size()), Qt::AlignCenter, note);
        return frame;
    }
    const QRectF place = view.Placement();
    const QImage& source = images.At(view.Zoom());
    QPainter painter(&frame);
    if (view.IsFit() && !drawFast) {
        const QSize size = place.size().toSize().expandedTo({1, 1});
        painter.drawImage(place.topLeft(),
                          source.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    } else {
        DrawVisible(painter, frame.rect(), place, source);
    }
    DrawPart(painter, frame.rect());
    painter.end();
    if (tones) ApplyTones(frame, *tones, place.toAlignedRect().intersected(frame.rect()));
    return frame;
}

void LumImgWnd::DrawPart(QPainter& painter, const QRect& window)
{
    if (part.IsNull()) return;
    const double zoom = view.Zoom();
    const QRectF place(view.Placement().topLeft() + QPointF(partPlace.topLeft()) * zoom,
                       QSizeF(partPlace.size()) * zoom);
    if (place.intersects(window)) DrawVisible(painter, window, place, part.At(zoom));
}
