#include "windows/zoom/ToviMultiDlg.h"

#include "delivery/ToviData.h"
#include "imagefacts/ToviExifInfo.h"
#include "items/ToviItemDef.h"
#include "items/ToviPhotoCtrlVisualSetting.h"
#include "photos/ToviPhoto.h"
#include "platform/controls/GaluDSplitter.h"
#include "platform/controls/WenToolBarCtrl.h"
#include "platform/controls/WindowId.h"
#include "platform/text/QtText.h"
#include "reports/CorrectionSave.h"
#include "review/ToviLabelManager.h"
#include "windows/cell/ToviNamePlate.h"
#include "windows/keys/KeySet.h"
#include "windows/loader/FileLoader.h"
#include "windows/loader/PhotoWishes.h"
#include "windows/pictures/Pictures.h"
#include "windows/property/ToviTabBaseWnd.h"
#include "windows/zoom/ZoomBar.h"
#include "windows/zoom/ZoomMemory.h"
#include "windows/zoom/ZoomRules.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QSlider>

#include <algorithm>

namespace
{
enum Command
{
    RotateRight = 1096,
    RotateLeft = 1097,
    TakeBack = 1099,
    Information = 1100,
    Arrange = 1101,
    Close = 1102,
    CloseAll = 1103,
    Fix = 1104,
    SavePhoto = 1133
};

enum ChildId
{
    idTabs = 1000,
    idZoomSplitter = 1038,
    idSlider = 1122
};

constexpr int imagePictures = 225;
constexpr int windowPictures = 803;
constexpr int pinPicture = 3;
constexpr int pinnedPicture = 4;

constexpr int quarterTurn = 90;
constexpr int sliderEnd = 100;
constexpr int sliderTick = 10;
constexpr int plateHeight = 27;
constexpr int margin = 5;
/// In a window lower than that the tools do without their names.
constexpr int roomForNames = 420;
constexpr int smallestHeight = 200;

constexpr const char* noPhoto = "< 写真を選択してください >";

struct ButtonCommand
{
    int button;
    FrameCommand command;
};

constexpr ButtonCommand buttonCommands[] = {{RotateLeft, FrameCommand::ZoomRotateLeft},
                                            {RotateRight, FrameCommand::ZoomRotateRight},
                                            {TakeBack, FrameCommand::ZoomRevert},
                                            {Information, FrameCommand::ZoomInformation},
                                            {SavePhoto, FrameCommand::ZoomSave},
                                            {Arrange, FrameCommand::ZoomArrange},
                                            {Close, FrameCommand::ZoomClose},
                                            {CloseAll, FrameCommand::ZoomCloseAll},
                                            {Fix, FrameCommand::ZoomFix}};

std::vector<WenToolBarButton> ImageButtons()
{
    using enum WenToolBarButton::Kind;
    return {{Push, RotateLeft, 0},   {Push, RotateRight, 1},
            {Push, TakeBack, 2},     {},
            {Check, Information, 3}, {},
            {Push, SavePhoto, 4}};
}

std::vector<WenToolBarButton> WindowButtons()
{
    using enum WenToolBarButton::Kind;
    return {{Push, Arrange, 0}, {Push, Close, 1}, {Push, CloseAll, 2}, {Check, Fix, pinPicture}};
}

WenToolBarCtrl* MakeBar(int pictures, const std::vector<WenToolBarButton>& buttons,
                        const CString& labels, QWidget* parent)
{
    auto* const bar = new WenToolBarCtrl(parent);
    bar->SetImages(PictureIcons(pictures));
    bar->AddButtons(buttons, labels);
    return bar;
}
} // namespace

ToviMultiDlg::ToviMultiDlg(bool showsInfo)
    : infoVisible(showsInfo), slider(new QSlider(Qt::Vertical)), view(new ZoomView),
      plate(new ToviNamePlate(nullptr)), info(new ToviTabBaseWnd(nullptr)),
      zoomBar(new ZoomBar(view)), splitter(new GaluDSplitter(Qt::Horizontal))
{
    setWindowFlags(Qt::Window | Qt::WindowMinMaxButtonsHint | Qt::WindowCloseButtonHint);
    setWindowIcon(PictureIcon("zoom"));
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_QuitOnClose, false);
    SetWindowId(info, idTabs);
    SetWindowId(splitter, idZoomSplitter);
    SetWindowId(slider, idSlider);
    CreateBars();
    splitter->SetPane(0, CreatePhoto());
    splitter->SetPane(1, info);
    splitter->SetMinimums(ZoomMemory::smallestPane, ZoomMemory::smallestPane);
    splitter->ShowPane(1, infoVisible);

    auto* const body = new QHBoxLayout;
    body->addWidget(CreateBrightness());
    body->addWidget(splitter, 1);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(margin, 0, margin, margin);
    column->setSpacing(margin);
    column->addLayout(barRow);
    column->addLayout(body, 1);
    column->addWidget(zoomBar);
    ConnectKeys();
    connect(&FileLoader::Ours(), &FileLoader::Arrived, this, &ToviMultiDlg::OnArrived);
    ClearPhoto();
    view->setFocus();
}

ToviMultiDlg::~ToviMultiDlg()
{
    FileLoader::Ours().Leave(this);
}

void ToviMultiDlg::CreateBars()
{
    imageToolBar =
        MakeBar(imagePictures, ImageButtons(), "左回転|右回転|戻す|情報|写真保存||", this);
    windowToolBar = MakeBar(windowPictures, WindowButtons(), "整列|閉じる|全閉|固定||", this);
    imageToolBar->CheckButton(Information, infoVisible);
    barRow = new QBoxLayout(QBoxLayout::LeftToRight);
    barRow->setSpacing(0);
    barRow->addWidget(imageToolBar);
    barRow->addWidget(windowToolBar, 0, Qt::AlignRight);
    connect(imageToolBar, &WenToolBarCtrl::Command, this, &ToviMultiDlg::OnCommand);
    connect(windowToolBar, &WenToolBarCtrl::Command, this, &ToviMultiDlg::OnCommand);
}

QWidget* ToviMultiDlg::CreateBrightness()
{
    slider->setRange(-sliderEnd, sliderEnd);
    slider->setPageStep(sliderTick);
    slider->setTickInterval(sliderTick);
    slider->setTickPosition(QSlider::TicksLeft);
    // Up, where the values are the smallest, is bright.
    slider->setInvertedAppearance(true);
    slider->setInvertedControls(true);
    slider->setAccessibleName(QStringLiteral("明るさ"));
    auto* const box = new QGroupBox;
    auto* const grid = new QGridLayout(box);
    grid->setContentsMargins(margin, margin, 3, margin);
    grid->setSpacing(2);
    const auto addText = [grid](const QString& text, int row, Qt::Alignment place) {
        grid->addWidget(new QLabel(text), row, 0, place | Qt::AlignRight);
        grid->setRowStretch(row, 1);
    };
    addText(QStringLiteral("明"), 0, Qt::AlignTop);
    addText(QStringLiteral("0"), 1, Qt::AlignVCenter);
    addText(QStringLiteral("暗"), 2, Qt::AlignBottom);
    grid->addWidget(slider, 0, 1, 3, 1);
    connect(slider, &QSlider::valueChanged, this, &ToviMultiDlg::OnBrightness);
    return box;
}

QWidget* ToviMultiDlg::CreatePhoto()
{
    plate->setFixedHeight(plateHeight);
    auto* const pane = new QWidget;
    auto* const column = new QVBoxLayout(pane);
    column->setContentsMargins({});
    column->setSpacing(0);
    column->addWidget(view, 1);
    column->addWidget(plate);
    connect(view, &ZoomView::Changed, this, &ToviMultiDlg::EnableCommands);
    connect(zoomBar, &ZoomBar::KeepsViewChanged, this, [this](bool keeps) {
        view->SetKeepsView(keeps);
        emit KeepsViewChanged(keeps);
    });
    return pane;
}

void ToviMultiDlg::ConnectKeys()
{
    connect(plate, &ToviNamePlate::LabelFlipped, this, [this](int label) {
        if (photoIndex >= 0) emit LabelRequested(photoIndex, static_cast<unsigned int>(label));
    });
    connect(plate, &ToviNamePlate::KeyPressed, this, [this](int key) {
        if (key == Qt::Key_Escape) reject();
    });
    AddCommand(FrameCommand::ZoomPrevious, [this] { emit StepRequested(-1); });
    AddCommand(FrameCommand::ZoomNext, [this] { emit StepRequested(1); });
    const auto brighten = [this](int steps) {
        if (slider->isEnabled()) slider->setValue(slider->value() + steps);
    };
    AddCommand(FrameCommand::ZoomBrighter, [brighten] { brighten(-sliderTick); });
    AddCommand(FrameCommand::ZoomDarker, [brighten] { brighten(sliderTick); });
    for (unsigned int label = 0; label < labelCount; ++label) {
        AddCommand(LabelCommandOf(label), [this, label] {
            if (photoIndex >= 0) emit LabelRequested(photoIndex, label);
        });
    }
    AddCommand(FrameCommand::RemoveLabels, [this] {
        if (photoIndex >= 0) emit LabelsRemovalRequested(photoIndex);
    });
    for (QAction* const action : imageToolBar->actions() + windowToolBar->actions()) {
        if (action->isSeparator()) continue;
        const auto* const known =
            std::ranges::find(buttonCommands, action->data().toInt(), &ButtonCommand::button);
        commands.emplace_back(known->command, action);
    }
    ApplyKeys();
}

void ToviMultiDlg::AddCommand(FrameCommand command, const std::function<void()>& operation)
{
    auto* const action = new QAction(this);
    connect(action, &QAction::triggered, this, operation);
    addAction(action);
    commands.emplace_back(command, action);
}

void ToviMultiDlg::ApplyKeys()
{
    const KeySet& keys = CurrentKeys();
    for (const auto& [command, action] : commands) {
        action->setShortcuts(keys.Of(command) + keys.WithShift(command));
        action->setToolTip(WithKey(action->text(), command));
    }
    slider->setToolTip(
        QStringLiteral("明るさ（%1 / %2）")
            .arg(KeyText(FrameCommand::ZoomBrighter), KeyText(FrameCommand::ZoomDarker)));
    RefreshLabels();
}

void ToviMultiDlg::keyPressEvent(QKeyEvent* event)
{
    // Enter would press a button.
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return;
    WenDialog::keyPressEvent(event);
}

void ToviMultiDlg::resizeEvent(QResizeEvent* event)
{
    WenDialog::resizeEvent(event);
    LayOut();
}

/// The tools of the windows stand beside those of the photograph, or below where they don't fit.
void ToviMultiDlg::LayOut()
{
    const Qt::ToolButtonStyle style =
        height() < roomForNames ? Qt::ToolButtonIconOnly : Qt::ToolButtonTextUnderIcon;
    imageToolBar->setToolButtonStyle(style);
    windowToolBar->setToolButtonStyle(style);
    const int image = imageToolBar->sizeHint().width();
    const int windows = windowToolBar->sizeHint().width();
    const bool fits = image + windows + 2 * margin <= width();
    barRow->setDirection(fits ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
    setMinimumSize(std::max(image, windows) + 2 * margin, smallestHeight);
}

ToviPhoto* ToviMultiDlg::Photo() const
{
    return data == nullptr ? nullptr : data->GetPhotoActualPhotoArray(photoIndex);
}

void ToviMultiDlg::SetPhoto(ToviData& newData, int index)
{
    data = &newData;
    photoIndex = index;
    ToviPhoto& photo = *Photo();
    path = photo.GetImagePath();
    canRevert = false;
    view->SetBrightness(ToviExifInfo::IsSvg(path) ? 0 : ZoomRules::BrightnessAt(slider->value()));
    view->Load(*data, photo, FindNeighbours());
    canRevert = view->Brightness() != 0;
    TellWishes();
    plate->SetHasDrawings(photo.GetPictureCount() > 0);
    plate->SetActive(true);
    ShowCheckResult();
    RefreshInfo();
    RefreshLabels();
    EnableCommands();
}

/// A window that follows the selection shows these next.
PhotoNeighbours ToviMultiDlg::FindNeighbours() const
{
    const int position = data->GetSelectCurIndex();
    if (isFixed || data->GetIndexPhotoArray(position) != photoIndex) return {};
    return {data->GetPhoto(position + 1), data->GetPhoto(position - 1)};
}

void ToviMultiDlg::TellWishes()
{
    std::vector<LoadWish> wishes;
    if (auto check = PhotoWishes(*data).Check(*Photo())) wishes.push_back(std::move(*check));
    FileLoader::Ours().Want(this, std::move(wishes));
}

void ToviMultiDlg::OnArrived(const LoadKey& key)
{
    if (Photo() == nullptr || key.path != path) return;
    if (key.kind == LoadKind::Check) ShowCheckResult();
}

void ToviMultiDlg::ShowCheckResult()
{
    TakeCheckInHand(*data, *Photo());
    plate->SetEditCheckResult(Photo()->GetEditChkResult());
}

void ToviMultiDlg::ClearPhoto()
{
    FileLoader::Ours().Leave(this);
    data = nullptr;
    photoIndex = -1;
    path.clear();
    canRevert = false;
    view->Clear();
    plate->SetActive(false);
    plate->SetHasDrawings(false);
    plate->SetEditCheckResult(ToviPhoto::EditCheckNone);
    plate->SetTitle({});
    plate->SetSelected(false);
    info->ClearContent();
    setWindowTitle(QString::fromUtf8(noPhoto));
    EnableCommands();
}

void ToviMultiDlg::RefreshInfo()
{
    ToviPhoto* const photo = Photo();
    if (photo == nullptr) return;
    const ToviPhotoCtrlVisualSetting& setting = data->GetVisualSetting();
    const ToviItemDef& definitions = *data->GetItemDef();
    const CString title = photo->GetTitle(definitions.GetIndexFromEnum(setting.GetTitleShowType()));
    plate->SetTitle(title);
    setWindowTitle(QtText(title));
    info->SetContent(*data, *photo, setting.GetItemShowSettings());
}

void ToviMultiDlg::RefreshLabels()
{
    const ToviPhoto* const photo = Photo();
    if (photo == nullptr) return;
    plate->SetLabelNames(*data->GetLabelManager());
    plate->ShowLabels(*photo);
    plate->SetSelected(photo->IsSelected());
}

int ToviMultiDlg::GetSplitterPos() const
{
    return std::max(infoVisible ? splitter->GetPosition() : splitterPos, ZoomMemory::smallestPane);
}

void ToviMultiDlg::SetSplitterPos(int pos)
{
    splitterPos = std::max(pos, ZoomMemory::smallestPane);
    splitter->SetPosition(splitterPos);
    // A window that grows has more room for the photograph.
    splitter->setStretchFactor(0, 1);
    splitter->setStretchFactor(1, 0);
}

int ToviMultiDlg::GetTabIndex() const
{
    return info->GetSelectedPage();
}

void ToviMultiDlg::SetTabIndex(int index)
{
    info->ShowPage(index);
}

void ToviMultiDlg::SetInfoVisible(bool visible)
{
    imageToolBar->CheckButton(Information, visible);
    if (visible == infoVisible) return;
    splitterPos = GetSplitterPos();
    infoVisible = visible;
    splitter->ShowPane(1, visible);
    if (visible) SetSplitterPos(splitterPos);
}

void ToviMultiDlg::SetKeepsView(bool keeps)
{
    view->SetKeepsView(keeps);
    zoomBar->SetKeepsView(keeps);
}

void ToviMultiDlg::OnCommand(int id)
{
    switch (id) {
    case RotateLeft:
    case RotateRight:
        if (!view->HasPicture()) break;
        view->Rotate(id == RotateLeft ? -quarterTurn : quarterTurn);
        NoteChange();
        break;
    case TakeBack:
        Revert();
        break;
    case Information:
        SetInfoVisible(imageToolBar->IsButtonChecked(Information));
        emit InfoChanged(infoVisible);
        break;
    case SavePhoto:
        Save();
        break;
    case Arrange:
        emit ArrangeRequested();
        break;
    case Close:
        reject();
        break;
    case CloseAll:
        emit CloseAllRequested();
        break;
    case Fix:
        SetFixed(windowToolBar->IsButtonChecked(Fix));
        break;
    default:
        break;
    }
}

void ToviMultiDlg::SetFixed(bool fixed)
{
    isFixed = fixed;
    windowToolBar->CheckButton(Fix, fixed);
    windowToolBar->SetButtonImage(Fix, isFixed ? pinnedPicture : pinPicture);
}

void ToviMultiDlg::OnBrightness(int position)
{
    const int value = ZoomRules::BrightnessAt(position);
    if (value == view->Brightness()) return;
    view->SetBrightness(value);
    NoteChange();
}

void ToviMultiDlg::Revert()
{
    if (!view->HasPicture()) return;
    slider->setValue(0);
    view->Revert();
    canRevert = false;
    EnableCommands();
}

void ToviMultiDlg::NoteChange()
{
    canRevert = true;
    EnableCommands();
}

void ToviMultiDlg::Save()
{
    ToviPhoto* const photo = Photo();
    if (photo == nullptr) return;
    CorrectionSave(*data, CorrectionSave::Window::Zoom)
        .Run({photo, view->Rotation(), view->Brightness(), view->HasPicture()});
}

void ToviMultiDlg::EnableCommands()
{
    const bool hasPhoto = photoIndex >= 0;
    for (const int id : {RotateLeft, RotateRight, SavePhoto}) {
        imageToolBar->EnableButton(id, hasPhoto);
    }
    imageToolBar->EnableButton(TakeBack, canRevert && view->HasPicture());
    windowToolBar->EnableButton(Fix, hasPhoto);
    slider->setEnabled(hasPhoto && !ToviExifInfo::IsSvg(path));
}
