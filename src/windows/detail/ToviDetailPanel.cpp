#include "windows/detail/ToviDetailPanel.h"

#include "items/ToviItemDef.h"
#include "items/ToviPhotoCtrlVisualSetting.h"
#include "photos/ToviPhoto.h"
#include "platform/controls/GaluDSplitter.h"
#include "platform/controls/WindowId.h"
#include "platform/host/HostServices.h"
#include "platform/store/StoredValues.h"
#include "reports/CorrectionSave.h"
#include "windows/detail/DetailPlaces.h"
#include "windows/detail/ToviImageWnd.h"
#include "windows/property/ToviTabBaseWnd.h"

#include <QResizeEvent>

namespace
{
constexpr int idImage = 1;
constexpr int idTabs = 2;
constexpr int idSplitter = 3;
constexpr QSize usualSize(640, 260);
} // namespace

ToviDetailPanel::ToviDetailPanel()
    : imageWnd(new ToviImageWnd(this)), tabWnd(new ToviTabBaseWnd(this)),
      splitter(new GaluDSplitter(Qt::Horizontal, this))
{
    SetWindowId(imageWnd, idImage);
    SetWindowId(tabWnd, idTabs);
    SetWindowId(splitter, idSplitter);
    splitter->SetPane(0, imageWnd);
    splitter->SetPane(1, tabWnd);
    splitter->SetMinimums(smallestDetailPane, smallestDetailPane);
    connect(splitter, &QSplitter::splitterMoved, this,
            [this] { position = splitter->GetPosition(); });
    connect(imageWnd, &ToviImageWnd::InformationToggled, this, &ToviDetailPanel::OnInformation);
    connect(imageWnd, &ToviImageWnd::SaveRequested, this, &ToviDetailPanel::SavePhoto);
    updateTimer.setSingleShot(true);
    connect(&updateTimer, &QTimer::timeout, this, &ToviDetailPanel::OnUpdateTimer);
    OnUpdateInformation();
}

ToviDetailPanel::~ToviDetailPanel()
{
    ProfileStore* const profile = GetHostServices().profile;
    const int rightWidth = width() - position;
    if (profile == nullptr || position < 0 || rightWidth <= 0) return;
    StoredSection().Write(DetailPanelSplitterSection_,
                          {StoredNumber(ImgWndWidthEntry_, rightWidth)});
}

void ToviDetailPanel::OnUpdate(CWnd* sender, ToviData::UpdateHint hint, CObject* object)
{
    ToviPanel::OnUpdate(sender, hint, object);
    switch (hint) {
    case ToviData::HintInitialize:
    case ToviData::HintSelectionChanged:
    case ToviData::HintCurrentArrayChanged:
    case ToviData::HintPhotoSelected:
        return OnPhotoChanged();
    case ToviData::HintSettingsChanged:
        return OnUpdateSetup();
    default:
        break;
    }
}

void ToviDetailPanel::OnPostAttachData()
{
    if (GetData() == nullptr) {
        UpdateContent();
        visible = false;
        ShowInformation(false);
    } else {
        Visible(GetData()->GetVisualSetting().GetVisibleDetail());
        ShowInformation(GetData()->GetVisualSetting().GetVisibleProperty());
        OnPhotoChanged();
    }
    OnUpdateInformation();
}

void ToviDetailPanel::Visible(bool show)
{
    if (show == visible) return;
    visible = show;
    OnVisibleChanged();
}

void ToviDetailPanel::OnVisibleChanged()
{
    if (stale && IsInSight()) updateTimer.start();
}

void ToviDetailPanel::OnUpdateTimer()
{
    if (stale && IsInSight()) UpdateContent();
}

void ToviDetailPanel::OnPhotoChanged()
{
    stale = true;
    OnVisibleChanged();
}

void ToviDetailPanel::OnUpdateSetup()
{
    if (GetData() == nullptr) return;
    const ToviPhotoCtrlVisualSetting& setting = GetData()->GetVisualSetting();
    Visible(setting.GetVisibleDetail());
    ShowInformation(setting.GetVisibleProperty());
    OnUpdateInformation();
    if (IsInSight() && setting.GetItemShowSettings() != shownItems) ShowProperties();
}

ToviPhoto* ToviDetailPanel::SelectedPhoto() const
{
    return GetData() == nullptr ? nullptr : GetData()->GetPhoto(GetData()->GetSelectCurIndex());
}

void ToviDetailPanel::UpdateContent()
{
    stale = false;
    imageWnd->SetPhoto(GetData(), SelectedPhoto());
    ShowProperties();
}

void ToviDetailPanel::ShowProperties()
{
    ToviPhoto* const photo = SelectedPhoto();
    if (photo == nullptr) {
        tabWnd->ClearContent();
        return;
    }
    shownItems = GetData()->GetVisualSetting().GetItemShowSettings();
    tabWnd->SetContent(*GetData(), *photo, shownItems);
}

void ToviDetailPanel::OnInformation()
{
    if (GetData() == nullptr) return;
    ToviPhotoCtrlVisualSetting setting = GetData()->GetVisualSetting();
    setting.SetVisibleProperty(!setting.GetVisibleProperty());
    GetData()->SetVisualSetting(setting, false);
    ShowInformation(setting.GetVisibleProperty());
    OnUpdateInformation();
}

void ToviDetailPanel::OnUpdateInformation()
{
    const bool isOpen = GetData() != nullptr;
    imageWnd->ShowInformationState(isOpen,
                                   isOpen && GetData()->GetVisualSetting().GetVisibleProperty());
}

void ToviDetailPanel::ShowInformation(bool show)
{
    splitter->ShowPane(1, show);
    if (show && position >= 0) splitter->SetPosition(position);
}

void ToviDetailPanel::SavePhoto()
{
    if (GetData() == nullptr) return;
    const ZoomView& view = imageWnd->View();
    CorrectionSave(*GetData(), CorrectionSave::Window::Image)
        .Run({.photo = SelectedPhoto(),
              .rotation = view.Rotation(),
              .brightness = view.Brightness(),
              .isShown = view.HasPicture()});
}

void ToviDetailPanel::AdjustSplitter() const
{
    int rightWidth = 0;
    if (const ProfileStore* const profile = GetHostServices().profile) {
        ReadStored(*profile, DetailPanelSplitterSection_, ImgWndWidthEntry_, rightWidth);
    }
    position = FirstPosition(width(), rightWidth);
    splitter->SetPosition(position);
}

QSize ToviDetailPanel::sizeHint() const
{
    return usualSize;
}

/// The right pane keeps its width, the left one takes the change.
void ToviDetailPanel::resizeEvent(QResizeEvent* event)
{
    ToviPanel::resizeEvent(event);
    splitter->setGeometry(rect());
    const std::optional<int> moved = PositionOnResize(position, lastWidth, width());
    lastWidth = width();
    if (position < 0) return;
    position = moved.value_or(position);
    splitter->SetPosition(position);
}

void ToviDetailPanel::showEvent(QShowEvent* event)
{
    ToviPanel::showEvent(event);
    OnVisibleChanged();
}
