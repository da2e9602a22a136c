#include "windows/zoom/ZoomView.h"

#include "platform/controls/LumImgWnd.h"
#include "platform/controls/WindowId.h"
#include "platform/pictures/LumPicture.h"
#include "platform/pictures/ToneCurve.h"
#include "windows/cell/CellChild.h"
#include "windows/loader/FileLoader.h"
#include "windows/loader/PhotoWishes.h"
#include "windows/pictures/FaultText.h"
#include "windows/pictures/PhotoGround.h"
#include "windows/zoom/ZoomRules.h"

#include <QApplication>
#include <QLabel>

#include <algorithm>
#include <chrono>
#include <cmath>
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

/// Nothing better than \p picture follows, which is sharp in the window.
bool IsLast(const LoadedPicture& picture)
{
    const long long pixels = 1LL * picture.image.GetWidth() * picture.image.GetHeight();
    return !picture.ok || picture.IsWhole() || pixels >= FileLoader::Ours().MostPixels();
}
} // namespace

ZoomView::ZoomView(QWidget* parent)
    : QStackedWidget(parent), imageWnd(new LumImgWnd), failPlate(new QLabel)
{
    PhotoGround::Get().LieUnder(*imageWnd, QPalette::Window);
    SetWindowId(imageWnd, idImage);
    SetWindowId(failPlate, idFailPlate);
    failPlate->setAlignment(Qt::AlignCenter);
    failPlate->setWordWrap(true);
    failPlate->setFocusPolicy(Qt::StrongFocus);
    addWidget(imageWnd);
    addWidget(failPlate);
    setFocusProxy(imageWnd);
    rest.setSingleShot(true);
    rest.setInterval(restTime);
    patience.setSingleShot(true);
    patience.setInterval(patienceTime);
    connect(&FileLoader::Ours(), &FileLoader::Arrived, this, &ZoomView::OnArrived);
    connect(&rest, &QTimer::timeout, this, &ZoomView::WantVisiblePart);
    connect(&patience, &QTimer::timeout, this, [this] {
        imageWnd->SetDisableImage();
        ShowPlate(QStringLiteral("読み込み中です..."));
    });
    connect(imageWnd, &LumImgWnd::ViewChanged, this, [this] {
        if (IsReduced()) rest.start();
        emit Changed();
    });
}

ZoomView::~ZoomView()
{
    FileLoader::Ours().Leave(this);
}

/// What is on show stays for a moment: the next one comes soon, and a window that goes dark between
/// two photographs hides what differs between them. But it never stays for long under the title of
/// the other.
void ZoomView::Begin()
{
    rest.stop();
    rotation = 0;
    hasFailed = false;
    fault = PictureFault::None;
    hasNoRoom = false;
    isFirst = true;
    shown.reset();
    part.reset();
    patience.start();
}

void ZoomView::Load(ToviData& newDocument, ToviPhoto& newPhoto,
                    const PhotoNeighbours& newNeighbours)
{
    document = &newDocument;
    photo = &newPhoto;
    neighbours = newNeighbours;
    windowSide = WindowSide();
    Begin();
    isLoading = true;
    TakeBest();
    TellWishes();
    emit Changed();
}

void ZoomView::Clear()
{
    document = nullptr;
    photo = nullptr;
    FileLoader::Ours().Leave(this);
    Begin();
    patience.stop();
    isLoading = false;
    ShowPixels(true);
}

/// The whole picture waits for the reduced one, so that this comes as soon as it can.
void ZoomView::TellWishes()
{
    FileLoader& loader = FileLoader::Ours();
    const PhotoWishes of(*document);
    LoadWish screen = of.Screen(*photo, windowSide);
    LoadWish full = of.Full(*photo);
    const bool hasFull = FullInHand() != nullptr;
    const auto reduced = loader.InHand<LoadedPicture>(screen.key);
    std::vector<LoadWish> wishes;
    if (!hasFull) wishes.push_back(std::move(screen));
    const bool wantsFull = reduced && !IsLast(*reduced) && !hasNoRoom;
    if (hasFull || wantsFull) wishes.push_back(std::move(full));
    if (part) wishes.push_back(*part);
    // Behind all that is looked at.
    if (!isLoading && neighbours.next != nullptr) {
        wishes.push_back(of.Screen(*neighbours.next, windowSide, Urgency::Next));
        wishes.push_back(of.Full(*neighbours.next, Urgency::Idle));
    }
    if (!isLoading && neighbours.previous != nullptr) {
        wishes.push_back(of.Screen(*neighbours.previous, windowSide, Urgency::Previous));
    }
    loader.Want(this, std::move(wishes));
}

void ZoomView::OnArrived(const LoadKey& key)
{
    if (photo == nullptr || key.path != photo->GetImagePath()) return;
    if (key.kind == LoadKind::Part) {
        TakePart();
    } else if (key.kind == LoadKind::Picture) {
        // What arrives and isn't in hand had no room, now as next time.
        if (!FileLoader::Ours().InHand<LoadedPicture>(key)) hasNoRoom = true;
        TakeBest();
        if (!hasNoRoom) TellWishes();
    }
}

/// Null, too, where the budget is so small that even it isn't sharp in the window.
std::shared_ptr<const LoadedPicture> ZoomView::FullInHand() const
{
    auto full = FileLoader::Ours().InHand<LoadedPicture>(PhotoWishes(*document).Full(*photo).key);
    if (!full || !full->ok || full->IsWhole()) return full;
    const int side = std::max(full->image.GetWidth(), full->image.GetHeight());
    return side >= windowSide ? full : nullptr;
}

void ZoomView::TakeBest()
{
    FileLoader& loader = FileLoader::Ours();
    const PhotoWishes of(*document);
    const auto full = FullInHand();
    auto best = full ? full : loader.InHand<LoadedPicture>(of.Screen(*photo, windowSide).key);
    if (full || hasNoRoom || (best && IsLast(*best))) isLoading = false;
    if (!best) best = loader.InHand<LoadedPicture>(of.Thumb(*photo).key);
    hasFailed = !isLoading && (!best || !best->ok);
    fault = best ? best->Fault() : PictureFault::TooLarge;
    if (best && !best->ok) best.reset();
    if (best == nullptr && !hasFailed) return;
    patience.stop();
    if (best != nullptr && best == shown) return emit Changed();
    shown = std::move(best);
    ShowPixels(std::exchange(isFirst, false));
}

void ZoomView::Rotate(int angle)
{
    if (!HasPicture()) return;
    rotation = ZoomRules::Turned(rotation, angle);
    part.reset();
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

/// \p isNew: it is another picture, not a better one of what is on show.
void ZoomView::ShowPixels(bool isNew)
{
    ReducedImages images;
    if (shown != nullptr && rotation == 0) {
        images = shown->images;
    } else if (shown != nullptr) {
        images = ReducedImages(Turned(LumPixels::Of(shown->image), rotation), TurnedSize());
    }
    imageWnd->SetImages(std::move(images), keepsView || !isNew);
    imageWnd->SetMark(FaultReason(fault));
    ShowPlate(hasFailed ? FaultText(fault, photo->GetImagePath()) : QString());
    TakePart();
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

void ZoomView::WantVisiblePart()
{
    const ImageView& view = imageWnd->View();
    const QRect seen = view.Visible().toAlignedRect().intersected({{0, 0}, TurnedSize()});
    if (!IsReduced() || seen.isEmpty()) return;
    if (view.Zoom() * shown->wholeSize.width() <= shown->image.GetWidth()) return;
    const QRect wanted = ZoomRules::TurnedBack(seen, TurnedSize(), rotation);
    if (part && part->key.part == wanted) return;
    part = PhotoWishes(*document).Part(*photo, wanted, WindowSide());
    TellWishes();
    TakePart();
}

void ZoomView::TakePart()
{
    if (!part || !HasPicture()) return;
    const auto loaded = FileLoader::Ours().InHand<LoadedPart>(part->key);
    if (!loaded || !loaded->ok) return;
    imageWnd->SetPart(Turned(loaded->image, rotation),
                      ZoomRules::TurnedBack(loaded->place, PictureSize(), -rotation));
}

int ZoomView::WindowSide() const
{
    const double side = std::max({imageWnd->width(), imageWnd->height(), 1});
    return static_cast<int>(std::ceil(side * devicePixelRatioF()));
}

QSize ZoomView::TurnedSize() const
{
    const QSize size = PictureSize();
    return rotation % 180 == 0 ? size : size.transposed();
}
