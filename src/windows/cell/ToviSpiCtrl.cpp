#include "windows/cell/ToviSpiCtrl.h"

#include "imagefacts/ControlValueParser.h"
#include "imagefacts/ToviControlValueArray.h"
#include "platform/controls/GaluDSplitter.h"
#include "platform/controls/GaluFont.h"
#include "platform/controls/LumImgWnd.h"
#include "platform/controls/WindowId.h"
#include "platform/host/CDocument.h"
#include "platform/text/QtText.h"
#include "windows/cell/CellChild.h"
#include "windows/cell/CellRect.h"
#include "windows/cell/ToviControlValueTable.h"
#include "windows/cell/ToviLabelButton.h"
#include "windows/cell/ToviNamePlate.h"
#include "windows/cell/ToviSpiListCtrl.h"
#include "windows/loader/FileLoader.h"
#include "windows/loader/PhotoWishes.h"
#include "windows/pictures/FaultText.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPointer>
#include <QVBoxLayout>

#include <algorithm>

using namespace std::chrono_literals;

namespace
{
/// A key held down turns pages without reading a full picture.
constexpr auto loadDelay = 100ms;
/// What comes sooner needs no word about it.
constexpr auto noteDelay = 500ms;
constexpr int valuePaneHeight = 75;
constexpr int smallestPaneHeight = 40;

/// Shows \p shown where \p hidden stood. The focus stays in this place: left to itself, Qt would
/// move it on to some other cell.
void ShowInPlaceOf(QWidget* hidden, QWidget* shown)
{
    const bool hadFocus = hidden->hasFocus();
    shown->show();
    if (hadFocus) shown->setFocus();
    hidden->hide();
}

/// The user has last given the focus to a part of a cell with the mouse: the keys that move are
/// then meant for the photographs. Who came by Tab wants to move within that part.
bool cameByMouse = false;

bool IsArrow(int key)
{
    return key == Qt::Key_Left || key == Qt::Key_Right || key == Qt::Key_Up || key == Qt::Key_Down;
}

void NoteWayOfFocus(Qt::FocusReason reason)
{
    if (reason == Qt::MouseFocusReason) cameByMouse = true;
    if (reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason) cameByMouse = false;
}

/// A menu or window that closes gives the focus back, by which nobody turns to a photograph.
bool IsGivenBack(Qt::FocusReason reason)
{
    return reason == Qt::PopupFocusReason || reason == Qt::MenuBarFocusReason ||
           reason == Qt::ActiveWindowFocusReason;
}

QWidget* MakePane(const QString& name, int id, std::initializer_list<QWidget*> children)
{
    auto* const pane = new QWidget;
    pane->setAccessibleName(name);
    SetWindowId(pane, id);
    auto* const layout = new QVBoxLayout(pane);
    layout->setContentsMargins(1, 0, 1, 0);
    for (QWidget* child : children) {
        child->setAccessibleName(name);
        layout->addWidget(child);
    }
    return pane;
}
} // namespace

ToviSpiCtrl::ToviSpiCtrl(ToviData* theData, CDocument*, const ToviPhotoCtrlVisualSetting* setting,
                         int id, QWidget* parent)
    : QWidget(parent), data(theData), visualSetting(setting), windowId(id)
{
    SetWindowId(this, id);
    setFont(GaluFont::MsPGothic9pt());
    loadTimer.setSingleShot(true);
    noteTimer.setSingleShot(true);
    CreatePicture();
    CreateInformation();
    ConnectChildren();
    WatchChildren();
    ApplyLabelNames();
    ClearPhoto();
}

ToviSpiCtrl::~ToviSpiCtrl()
{
    FileLoader::Ours().Leave(this);
}

void ToviSpiCtrl::CreatePicture()
{
    imageWnd = new LumImgWnd(this);
    imageWnd->SetCommand(LumImgWnd::commandMove);
    imageWnd->SetDoubleClickZoom(false);
    LumImgWnd::m_zoomIsViewport = true;
    SetWindowId(imageWnd, idImage);

    failPlate = new QLabel(this);
    failPlate->setWordWrap(true);
    failPlate->setAlignment(Qt::AlignCenter);
    failPlate->setFocusPolicy(Qt::StrongFocus);
    failPlate->setAutoFillBackground(true);
    QPalette colors = failPlate->palette();
    colors.setColor(QPalette::Window, faultColor);
    colors.setColor(QPalette::WindowText, Qt::black);
    failPlate->setPalette(colors);
    SetWindowId(failPlate, idFailPlate);

    namePlate = new ToviNamePlate(this);
}

void ToviSpiCtrl::CreateInformation()
{
    splitter = new GaluDSplitter(Qt::Vertical, this);
    SetWindowId(splitter, idSplitter);

    infoList = new ToviSpiListCtrl(visualSetting, splitter);
    SetWindowId(infoList, idInfoList);
    valueTable = new ToviControlValueTable(splitter);
    SetWindowId(valueTable, idValueTable);
    valueEdit = new QPlainTextEdit(splitter);
    valueEdit->setReadOnly(true);
    valueEdit->setTabChangesFocus(true);
    valueEdit->setPlaceholderText(QtText(controlValueTitle));
    SetWindowId(valueEdit, idValueEdit);

    splitter->SetPane(0, MakePane(QStringLiteral("写真情報"), idTopPane, {infoList}));
    splitter->SetPane(1,
                      MakePane(QtText(controlValueTitle), idBottomPane, {valueTable, valueEdit}));
    splitter->SetMinimums(smallestPaneHeight, smallestPaneHeight);
    splitter->SetPosition(-valuePaneHeight);
}

void ToviSpiCtrl::ConnectChildren()
{
    connect(&FileLoader::Ours(), &FileLoader::Arrived, this, &ToviSpiCtrl::OnArrived);
    connect(&loadTimer, &QTimer::timeout, this, [this] {
        fullWanted = true;
        TellWishes();
    });
    connect(&noteTimer, &QTimer::timeout, this,
            [this] { imageWnd->SetNote(QStringLiteral("読み込み中…")); });
    connect(imageWnd, &LumImgWnd::Clicked, this, &ToviSpiCtrl::OnClicked);
    connect(imageWnd, &LumImgWnd::DoubleClicked, this, &ToviSpiCtrl::OnDoubleClicked);
    connect(imageWnd, &LumImgWnd::RightClicked, this, &ToviSpiCtrl::OnRightClicked);
    connect(infoList, &GaluListCtrl::Clicked, this, &ToviSpiCtrl::OnClicked);
    connect(infoList, &GaluListCtrl::DoubleClicked, this, &ToviSpiCtrl::OnDoubleClicked);
    connect(infoList, &GaluListCtrl::RightClicked, this, &ToviSpiCtrl::OnRightClicked);
    connect(namePlate, &ToviNamePlate::Clicked, this, [this] {
        const QPointer<ToviSpiCtrl> alive = this;
        OnClicked();
        if (alive) namePlate->setFocus();
    });
    connect(namePlate, &ToviNamePlate::DoubleClicked, this, &ToviSpiCtrl::OnDoubleClicked);
    connect(namePlate, &ToviNamePlate::RightClicked, this, &ToviSpiCtrl::OnRightClicked);
    connect(namePlate, &ToviNamePlate::KeyPressed, this, &ToviSpiCtrl::KeyPressed);
    connect(namePlate, &ToviNamePlate::LabelFlipped, this, &ToviSpiCtrl::OnLabelClicked);
}

void ToviSpiCtrl::WatchChildren()
{
    for (QWidget* child : findChildren<QWidget*>()) child->installEventFilter(this);
}

void ToviSpiCtrl::SetPhoto(int index)
{
    ToviPhoto* const photo = data->GetPhoto(index);
    if (photo == nullptr) {
        ClearPhoto();
        return;
    }
    const int newIndex = data->GetIndexPhotoArray(index);
    const bool isSame = newIndex == actualIndex;
    if (!isSame) ReleasePicture();
    photoIndex = index;
    actualIndex = newIndex;
    // First of all: it is read while the rest of the page is filled.
    TellWishes();
    LayoutChildren();
    ShowPicture(*photo);
    if (!data->GetItemDef()->IsEmpty()) {
        FillItems(*photo);
        infoList->itemColours.AddShowSettings(visualSetting->GetItemShowSettings());
        FillValues(*photo);
    }
    ShowPlate(*photo);
    update();
}

void ToviSpiCtrl::ClearPhoto()
{
    ReleasePicture();
    photoIndex = -1;
    actualIndex = -1;
    FileLoader::Ours().Leave(this);
    imageOk = true;
    imageWnd->SetDisableImage();
    ShowInPlaceOf(failPlate, imageWnd);
    infoList->Clear();
    valueTable->Clear();
    valueEdit->clear();
    ShowInPlaceOf(valueTable, valueEdit);
    namePlate->SetActive(false);
    namePlate->SetHasDrawings(false);
    namePlate->SetEditCheckResult(ToviPhoto::EditCheckNone);
    namePlate->SetTitle({});
    InvalidateNamePlate();
    LayoutChildren();
    update();
}

bool ToviSpiCtrl::Shows(int index) const
{
    return actualIndex >= 0 && data->GetIndexPhotoArray(index) == actualIndex;
}

/// What keeps memory bounded while pages are turned.
void ToviSpiCtrl::ReleasePicture()
{
    loadTimer.stop();
    noteTimer.stop();
    imageWnd->SetNote({});
    shown.reset();
    fullShown = false;
    fullWanted = false;
    if (ToviPhoto* const photo = ShownPhoto()) photo->ReleaseImage();
}

void ToviSpiCtrl::TellWishes()
{
    ToviPhoto* const photo = ShownPhoto();
    if (photo == nullptr) return;
    FileLoader& loader = FileLoader::Ours();
    const PhotoWishes wishes(*data);
    std::vector<LoadWish> wanted = {wishes.Thumb(*photo), wishes.Facts(*photo)};
    LoadWish full = wishes.Full(*photo);
    if (fullWanted || loader.InHand<LoadedPicture>(full.key)) wanted.push_back(std::move(full));
    if (auto check = wishes.Check(*photo)) wanted.push_back(std::move(*check));
    loader.Want(this, std::move(wanted));
}

/// Shows the best that is in hand.
void ToviSpiCtrl::ShowPicture(ToviPhoto& photo)
{
    FileLoader& loader = FileLoader::Ours();
    const PhotoWishes wishes(*data);
    if (const auto full = loader.InHand<LoadedPicture>(wishes.Full(photo).key)) {
        if (full->IsWhole() && full->Fault() == PictureFault::None) photo.TakeImage(full->image);
        fullShown = true;
        ShowFetched(full);
        return;
    }
    if (!fullShown) {
        const auto thumb = loader.InHand<LoadedPicture>(wishes.Thumb(photo).key);
        if (thumb) photo.TakeThumb(thumb->image);
        ShowFetched(thumb && thumb->ok ? thumb : nullptr);
    }
    // From when the whole page is there, which may take longer than the delay.
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (!fullWanted && !loadTimer.isActive()) loadTimer.start(loadDelay);
        },
        Qt::QueuedConnection);
}

/// Shows \p picture: where it is the same photograph's as the one before, in the same view. Null
/// while there is none.
void ToviSpiCtrl::ShowFetched(const std::shared_ptr<const LoadedPicture>& picture)
{
    imageOk = picture == nullptr || picture->ok;
    if (picture == nullptr || !picture->ok) {
        imageWnd->SetDisableImage();
    } else if (shown == nullptr) {
        imageWnd->SetImages(picture->images);
    } else if (shown != picture) {
        imageWnd->RefreshImages(picture->images);
    }
    shown = picture;
    if (picture != nullptr) {
        imageWnd->SetMark(FaultReason(picture->Fault()));
        failPlate->setText(FaultText(picture->Fault(), ShownPhoto()->GetImagePath()));
        noteTimer.stop();
    } else if (!noteTimer.isActive()) {
        noteTimer.start(noteDelay);
    }
    if (imageOk) {
        ShowInPlaceOf(failPlate, imageWnd);
    } else {
        ShowInPlaceOf(imageWnd, failPlate);
    }
}

void ToviSpiCtrl::OnArrived(const LoadKey& key)
{
    ToviPhoto* const photo = ShownPhoto();
    if (photo == nullptr || key.path != photo->GetImagePath()) return;
    switch (key.kind) {
    case LoadKind::Picture:
        ShowPicture(*photo);
        break;
    case LoadKind::Facts:
        if (!data->GetItemDef()->IsEmpty()) FillItems(*photo);
        break;
    case LoadKind::Check:
        ShowCheckResult(*photo);
        break;
    case LoadKind::Part:
    case LoadKind::Drawing:
    case LoadKind::Survey:
        break;
    }
}

void ToviSpiCtrl::FillInfo()
{
    infoList->Clear();
    infoList->itemColours.Clear();
    valueTable->Clear();
    ToviPhoto* const photo = Photo();
    if (photo == nullptr || data->GetItemDef()->IsEmpty()) return;
    FillItems(*photo);
    FillValues(*photo);
    LayoutChildren();
}

void ToviSpiCtrl::FillItems(ToviPhoto& photo)
{
    ItemColours& colours = infoList->itemColours;
    if (colours.IsEmpty()) colours.AddDefinitions(*data->GetItemDef());
    ToviTextPairArray pairs;
    GetShownPairs(*data, photo, visualSetting->GetItemShowSettings(), pairs);
    infoList->Fill(pairs);
}

void ToviSpiCtrl::FillValues(const ToviPhoto& photo)
{
    const CString text = photo.GetTitle(data->GetItemDef()->GetIndexFromTitle(controlValueTitle));
    ToviControlValues values;
    ParseControlValues(text, values);
    valueTable->SetValues(values);
    valueEdit->setPlainText(QtText(text));
    if (valueTable->GetItemCount() > 0) {
        ShowInPlaceOf(valueEdit, valueTable);
    } else {
        ShowInPlaceOf(valueTable, valueEdit);
    }
}

void ToviSpiCtrl::ShowPlate(ToviPhoto& photo)
{
    const auto titleType = visualSetting->GetTitleShowType();
    namePlate->SetTitle(photo.GetTitle(data->GetItemDef()->GetIndexFromEnum(titleType)));
    namePlate->SetHasDrawings(photo.GetPictureCount() > 0);
    namePlate->SetActive(true);
    UpdateLabelButtons();
    ShowCheckResult(photo);
    InvalidateNamePlate();
}

void ToviSpiCtrl::ShowCheckResult(ToviPhoto& photo)
{
    TakeCheckInHand(*data, photo);
    namePlate->SetEditCheckResult(photo.GetEditChkResult());
}

void ToviSpiCtrl::LayoutChildren()
{
    const ToviPhoto* const photo = Photo();
    const bool hasStrip =
        visualSetting->GetVisibleComment() && photo != nullptr && !photo->GetComment().empty();
    const CellLayout layout =
        LayOutCell(width(), height(), visualSetting->GetImageTextArrange(), hasStrip);
    imageWnd->setGeometry(AsRect(layout.image));
    failPlate->setGeometry(AsRect(layout.image));
    const bool hasInformation = layout.information.width > 0;
    if (!hasInformation && splitter->isAncestorOf(QApplication::focusWidget()))
        namePlate->setFocus();
    splitter->setGeometry(AsRect(layout.information));
    splitter->ShowPane(1, visualSetting->GetItemShowSettings().IsBold(controlValueTitle));
    splitter->setVisible(hasInformation);
    namePlate->setGeometry(AsRect(layout.plate));
}

void ToviSpiCtrl::ApplyLabelNames()
{
    namePlate->SetLabelNames(*data->GetLabelManager());
    UpdateLabelButtons();
}

void ToviSpiCtrl::UpdateLabelButtons()
{
    const ToviPhoto* const photo = Photo();
    if (photo != nullptr) namePlate->ShowLabels(*photo);
}

void ToviSpiCtrl::FocusChild(int childId)
{
    const int target = ChildToFocus(childId, imageOk, valueTable->GetItemCount() > 0);
    for (QWidget* child : findChildren<QWidget*>()) {
        if (target == 0 || WindowId(child) != target || !child->isEnabled()) continue;
        child->setFocus();
        return;
    }
    setFocus();
}

void ToviSpiCtrl::ClearAnchor()
{
    if (imageWnd->IsEnableImage()) imageWnd->ExecClearAnchor();
}

void ToviSpiCtrl::InvalidateNamePlate(bool)
{
    const ToviPhoto* const photo = Photo();
    namePlate->SetSelected(photo != nullptr && photo->IsSelected());
}

QSize ToviSpiCtrl::GetImageSize() const
{
    return imageWnd->size();
}

void ToviSpiCtrl::OnLabelClicked(int label)
{
    const ToviPhoto* const photo = Photo();
    if (photo == nullptr) return;
    const QPointer<ToviSpiCtrl> alive = this;
    const auto slot = static_cast<unsigned int>(label);
    // What the press flipped tells of the label, which only a comment brings.
    if (slot == LabelComment) UpdateLabelButtons();
    if (slot != LabelComment && photo->IsLabelPasted(slot)) {
        emit RemoveLabelRequested(slot, this);
    } else {
        emit PasteLabelRequested(slot, this);
    }
    if (alive) OnClicked();
}

void ToviSpiCtrl::OnCommentWindowClicked(QWidget* strip)
{
    const QPointer<QWidget> alive = strip;
    OnClicked();
    if (alive) strip->setFocus();
}

void ToviSpiCtrl::OnCommentWindowDblClicked(QWidget*)
{
    OnLabelClicked(LabelComment);
}

void ToviSpiCtrl::OnRightClicked()
{
    const QPointer<ToviSpiCtrl> alive = this;
    namePlate->setFocus();
    emit RightClicked(windowId);
    if (!alive || namePlate->IsActive()) return;
    namePlate->setFocus();
    InvalidateNamePlate();
}

/// The focus in a child that shows the photograph selects the cell.
void ToviSpiCtrl::OnChildFocused(const QObject* child)
{
    const QObject* const ofPhoto[] = {imageWnd,         failPlate,          namePlate,
                                      infoList->View(), valueTable->View(), valueEdit};
    const ToviPhoto* const photo = Photo();
    if (std::ranges::find(ofPhoto, child) == std::end(ofPhoto)) return;
    if (photo != nullptr && !photo->IsSelected()) OnClicked();
}

bool ToviSpiCtrl::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::KeyPress:
        return ForwardMoveKey(*static_cast<QKeyEvent*>(event), cameByMouse);
    case QEvent::ShortcutOverride:
        return KeepKey(watched, *static_cast<QKeyEvent*>(event));
    case QEvent::FocusIn:
        NoteWayOfFocus(static_cast<QFocusEvent*>(event)->reason());
        if (!IsGivenBack(static_cast<QFocusEvent*>(event)->reason())) OnChildFocused(watched);
        return false;
    default:
        return QWidget::eventFilter(watched, event);
    }
}

void ToviSpiCtrl::keyPressEvent(QKeyEvent* event)
{
    if (!ForwardMoveKey(*event, true)) QWidget::keyPressEvent(event);
}

/// Ctrl with a key that moves through the pages is the panel's, wherever in the cell the focus is;
/// so are the arrows alone where \p plainToo.
bool ToviSpiCtrl::ForwardMoveKey(const QKeyEvent& event, bool plainToo)
{
    const int key = event.key();
    const Qt::KeyboardModifiers held = event.modifiers() & ~Qt::KeypadModifier;
    const bool isPageKey = key == Qt::Key_PageUp || key == Qt::Key_PageDown;
    const bool withCtrl = held & Qt::ControlModifier && (isPageKey || IsArrow(key));
    const bool plain = plainToo && held == Qt::NoModifier && IsArrow(key);
    if (withCtrl || plain) emit KeyPressed(key);
    return withCtrl || plain;
}

/// A part that was reached by Tab keeps the keys that it uses itself from being shortcuts.
bool ToviSpiCtrl::KeepKey(const QObject* child, QKeyEvent& event) const
{
    const QObject* const withoutUse[] = {this, imageWnd, failPlate, namePlate};
    const bool isUsed =
        event.key() == Qt::Key_Space || event.key() == Qt::Key_Home || event.key() == Qt::Key_End;
    if (cameByMouse || !isUsed || event.modifiers() != Qt::NoModifier ||
        std::ranges::find(withoutUse, child) != std::end(withoutUse))
        return false;
    event.accept();
    return true;
}

void ToviSpiCtrl::resizeEvent(QResizeEvent*)
{
    LayoutChildren();
}
