#include "windows/zoom/ZoomView.h"

#include "platform/controls/LumImgWnd.h"
#include "platform/controls/WindowId.h"
#include "platform/pictures/ToneCurve.h"
#include "windows/cell/CellChild.h"
#include "windows/pictures/PhotoGround.h"
#include "windows/zoom/ZoomRules.h"

#include <QApplication>
#include <QLabel>

#include <chrono>
#include <utility>

using namespace std::chrono_literals;

namespace
{
constexpr auto restTime = 120ms;
constexpr auto patienceTime = 300ms;

QImage Turned(const QImage& image, int angle)
{
    return angle % 360 == 0 ? image : image.transformed(QTransform().rotate(angle));
}
} // namespace

ZoomView::ZoomView(QWidget* parent)
    : QStackedWidget(parent), imageWnd(new LumImgWnd), failPlate(new QLabel)
{
    PhotoGround::Get().LieUnder(*imageWnd, QPalette::Window);
    SetWindowId(imageWnd, idImage);
    SetWindowId(failPlate, idFailPlate);
    failPlate->setAlignment(Qt::AlignCenter);
    failPlate->setFocusPolicy(Qt::StrongFocus);
    addWidget(imageWnd);
    addWidget(failPlate);
    setFocusProxy(imageWnd);
    rest.setSingleShot(true);
    rest.setInterval(restTime);
    patience.setSingleShot(true);
    patience.setInterval(patienceTime);
    connect(&loader, &PictureLoader::Arrived, this, &ZoomView::OnArrived);
    connect(&loader, &PictureLoader::PartArrived, this, &ZoomView::OnPartArrived);
    connect(&rest, &QTimer::timeout, this, &ZoomView::LoadVisiblePart);
    connect(&patience, &QTimer::timeout, this, [this] {
        imageWnd->SetDisableImage();
        ShowPlate(QStringLiteral("読み込み中です..."));
    });
    connect(imageWnd, &LumImgWnd::ViewChanged, this, [this] {
        if (IsReduced()) rest.start();
        emit Changed();
    });
}

/// What is on show stays for a moment: the next one comes soon, and a window that goes dark between
/// two photographs hides what differs between them. But it never stays for long under the title of
/// the other.
void ZoomView::Begin(const CString& file)
{
    loader.Drop();
    rest.stop();
    path = file;
    rotation = 0;
    hasFailed = false;
    isFirst = true;
    picture = {};
    loadedPart = {};
    patience.start();
}

void ZoomView::Load(const CString& file)
{
    Begin(file);
    if (file.empty()) {
        OnArrived({});
        return;
    }
    isLoading = true;
    loader.Load(file, WindowSize());
    emit Changed();
}

void ZoomView::Show(const CString& file, const QImage& whole)
{
    Begin(file);
    OnArrived({whole, whole.size(), whole.rect(), true});
}

void ZoomView::Clear()
{
    Begin({});
    OnArrived({});
    hasFailed = false;
    ShowPlate({});
}

bool ZoomView::IsReduced() const
{
    return HasPicture() && !isLoading && picture.size() != TurnedSize();
}

void ZoomView::Rotate(int angle)
{
    if (!HasPicture()) return;
    rotation = ZoomRules::Turned(rotation, angle);
    picture = Turned(picture, angle);
    loadedPart = {};
    ShowPixels(true);
}

void ZoomView::SetBrightness(int value)
{
    brightness = value;
    imageWnd->SetTones(BrightnessCurve(brightness));
}

void ZoomView::Revert()
{
    SetBrightness(0);
    if (rotation != 0) Rotate(-rotation);
}

void ZoomView::OnArrived(const PictureStage& stage)
{
    if (stage.image.isNull() && !stage.isLast) return;
    patience.stop();
    isLoading = !stage.isLast;
    hasFailed = stage.image.isNull();
    size = stage.size;
    picture = Turned(stage.image, rotation);
    ShowPixels(std::exchange(isFirst, false));
}

/// \p isNew: it is another picture, not a better one of what is on show.
void ZoomView::ShowPixels(bool isNew)
{
    imageWnd->SetPixels(picture, TurnedSize(), keepsView || !isNew);
    ShowPlate(hasFailed ? QStringLiteral("表示できません") : QString());
    emit Changed();
}

/// An empty \p text brings the picture back.
void ZoomView::ShowPlate(const QString& text)
{
    const bool hadFocus = isAncestorOf(QApplication::focusWidget());
    failPlate->setText(text);
    setCurrentWidget(text.isEmpty() ? static_cast<QWidget*>(imageWnd) : failPlate);
    setFocusProxy(currentWidget());
    if (hadFocus) currentWidget()->setFocus();
}

void ZoomView::LoadVisiblePart()
{
    const ImageView& view = imageWnd->View();
    const QRect seen = view.Visible().toAlignedRect().intersected({{0, 0}, TurnedSize()});
    const bool isSharp = view.Zoom() * TurnedSize().width() <= picture.width();
    if (!IsReduced() || isSharp || seen.isEmpty()) return;
    const QRect wanted = ZoomRules::TurnedBack(seen, TurnedSize(), rotation);
    if (loadedPart == wanted) return;
    loadedPart = wanted;
    const QSize window = WindowSize();
    loader.LoadPart(path, wanted, rotation % 180 == 0 ? window : window.transposed());
}

void ZoomView::OnPartArrived(const PictureStage& stage)
{
    if (stage.image.isNull() || !IsReduced()) return;
    imageWnd->SetPart(Turned(stage.image, rotation),
                      ZoomRules::TurnedBack(stage.part, size, -rotation));
}

QSize ZoomView::WindowSize() const
{
    return (QSizeF(imageWnd->size()) * devicePixelRatioF()).toSize().expandedTo({1, 1});
}

QSize ZoomView::TurnedSize() const
{
    return rotation % 180 == 0 ? size : size.transposed();
}
