#include "windows/page/ToviMpiPanel.h"

#include "platform/controls/GaluListCtrl.h"
#include "platform/controls/WindowHandle.h"
#include "platform/controls/WindowId.h"
#include "platform/host/CDocument.h"
#include "review/LabelEdits.h"
#include "review/SlideMode.h"
#include "windows/list/ToviPhotoListCtrl.h"
#include "windows/loader/FileLoader.h"
#include "windows/page/VerdictEcho.h"
#include "windows/panel/ToviPopUpMenu.h"
#include "windows/panel/UncheckedSearch.h"
#include "windows/pictures/PhotoGround.h"

#include <QApplication>
#include <QKeyEvent>

#include <algorithm>
#include <utility>

namespace
{
std::optional<MoveKey> MoveKeyOf(int key)
{
    switch (key) {
    case Qt::Key_PageUp:
        return MoveKey::PageUp;
    case Qt::Key_PageDown:
        return MoveKey::PageDown;
    case Qt::Key_Left:
        return MoveKey::Left;
    case Qt::Key_Right:
        return MoveKey::Right;
    case Qt::Key_Up:
        return MoveKey::Up;
    case Qt::Key_Down:
        return MoveKey::Down;
    default:
        return {};
    }
}

bool IsEnter(int key)
{
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

/// A list that \p focus is in makes a double click of Enter by itself.
bool MakesDoubleClick(const QWidget* focus)
{
    const auto* const list =
        focus == nullptr ? nullptr : qobject_cast<const GaluListCtrl*>(focus->parentWidget());
    return list != nullptr && list->GetSelected() >= 0;
}

/// The number of the child of a cell that \p widget is, or lies in; 0 if it lies in none.
int CellChildOf(const QWidget* widget)
{
    for (; widget != nullptr; widget = widget->parentWidget()) {
        if (WindowId(widget) != 0) return WindowId(widget);
    }
    return 0;
}
} // namespace

ToviMpiPanel::ToviMpiPanel(CDocument* theDocument)
    : views(*this, visualSetting, theDocument), labels(*this, AsWindow(this))
{
    PhotoGround::Get().LieUnder(*this, QPalette::Window);
    setAutoFillBackground(true);
    echo = new VerdictEcho(this);
    connect(&views, &PhotoViews::CellClicked, this, &ToviMpiPanel::OnSpiClicked);
    connect(&views, &PhotoViews::CellDoubleClicked, this, &ToviMpiPanel::OnSpiDblClicked);
    connect(&views, &PhotoViews::CellRightClicked, this, &ToviMpiPanel::OnSpiRClicked);
    connect(&views, &PhotoViews::CellKeyPressed, this, &ToviMpiPanel::OnSpiKeyDown);
    connect(&views, &PhotoViews::PasteLabelRequested, this, &ToviMpiPanel::OnSpiPasteLabel);
    connect(&views, &PhotoViews::RemoveLabelRequested, this, &ToviMpiPanel::OnSpiRemoveLabel);
    connect(&views, &PhotoViews::ItemSelected, this, [this](int row) {
        OnSelect(row);
        emit SelectionChanged();
    });
    connect(&views, &PhotoViews::ItemDoubleClicked, this, &ToviMpiPanel::RequestZoom);
    connect(&views, &PhotoViews::ItemRightClicked, this, &ToviMpiPanel::OnRClicked);
    connect(&views, &PhotoViews::ListKeyPressed, this, &ToviMpiPanel::OnListCtrlKeyDown);
    connect(&views, &PhotoViews::OrderChanged, this, &ToviMpiPanel::OrderChanged);
    connect(&views, &PhotoViews::FloatyPressed, this, &ToviMpiPanel::OnFusen);
    ConnectZooms();
}

void ToviMpiPanel::ConnectZooms()
{
    connect(&zooms, &ZoomWindows::StepRequested, this, [this](int step) {
        const int target = SelectedPosition() + step;
        if (target >= 0 && target < PhotoCount()) SelectNeighbour(step);
    });
    connect(&zooms, &ZoomWindows::LabelRequested, this,
            [this](int photo, unsigned int label) { labels.Toggle({photo}, label); });
    connect(&zooms, &ZoomWindows::LabelsRemovalRequested, this,
            [this](int photo) { labels.RemoveAll({photo}); });
}

/// The children know the document, too.
void ToviMpiPanel::OnPreDetachData()
{
    CloseMenu();
    positionWindow.Close();
    DeleteAllDialog();
    ClearMessageState();
    views.Destroy();
    FileLoader::Ours().Forget(GetData()->GetFiles().get());
    pages.ResetPageCount(-1, 0);
    TellPage();
}

int ToviMpiPanel::PhotoCount() const
{
    return GetData() == nullptr ? 0 : GetData()->GetCurrentPhotoCount();
}

int ToviMpiPanel::SelectedPosition() const
{
    return GetData() == nullptr ? -1 : GetData()->GetSelectCurIndex();
}

/// The photo indexes of the selected photographs, several in a list; none that the user doesn't
/// see among those on show.
LabelCommands::Photos ToviMpiPanel::SelectedPhotos() const
{
    LabelCommands::Photos photos;
    if (GetData() == nullptr) return photos;
    if (views.List() != nullptr) {
        for (const int row : views.List()->GetSelectedRows())
            photos.push_back(GetData()->GetIndexPhotoArray(row));
    } else if (const int photo = GetData()->GetIndexPhotoArray(SelectedPosition()); photo >= 0) {
        photos.push_back(photo);
    }
    return photos;
}

int ToviMpiPanel::CountSelected() const
{
    if (GetData() == nullptr) return 0;
    if (views.List() != nullptr) return views.List()->GetSelectedCount();
    return SelectedPosition() >= 0 ? 1 : 0;
}

// Updates

void ToviMpiPanel::OnUpdate(CWnd* sender, ToviData::UpdateHint hint, CObject* object)
{
    ToviPanel::OnUpdate(sender, hint, object);
    if (GetData() == nullptr) return;
    const Setting::DivideType mode = hint == ToviData::HintInitialize
                                         ? GetData()->GetVisualSetting().GetDivType()
                                         : visualSetting.GetDivType();
    if (const auto* const edit = dynamic_cast<const LabelEdit*>(object)) {
        ShowOutcome(*edit);
        return;
    }
    for (const PanelStep step : StepsOf(hint, mode)) TakeStep(step);
    if (TellsOfSelection(hint)) positionWindow.Follow(*GetData());
    UpdateMultiDlg();
    if (hint == ToviData::HintSettingsChanged) zooms.RefreshInfo();
    TellPage();
}

void ToviMpiPanel::TakeStep(PanelStep step)
{
    switch (step) {
    case PanelStep::CopySettings:
        visualSetting = GetData()->GetVisualSetting();
        break;
    case PanelStep::ApplySettings:
        SetVisualSetting(GetData()->GetVisualSetting(), false);
        break;
    case PanelStep::Initialize:
        Initialize();
        break;
    case PanelStep::ResetPages:
        pages.ResetPageCount(0, PhotoCount());
        break;
    case PanelStep::GoToSelected:
        GoToSelected();
        break;
    case PanelStep::ChangePage:
        OnChangePage();
        break;
    case PanelStep::RefillList:
        views.RefillList();
        break;
    case PanelStep::SelectListItem:
        if (views.List() != nullptr) OnSelect(views.List()->GetSelected());
        break;
    case PanelStep::RebuildStrips:
        views.CreateCommentWindow();
        views.ReCalcCommentWindow();
        break;
    case PanelStep::ShowAll:
        InvalidateAllCtrls();
        break;
    case PanelStep::ClearAnchors:
        views.Cells().ForEach([](ToviSpiCtrl& cell) { cell.ClearAnchor(); });
        break;
    }
}

void ToviMpiPanel::SetVisualSetting(const Setting& newSetting, bool force)
{
    const SettingChange change = ChangeOf(visualSetting, newSetting, force);
    const int top = GetTopPosIndex();
    visualSetting = newSetting;
    if (GetData() == nullptr) return;
    if (change.rebuild) {
        InitiateLayput(top);
    } else {
        AdjustTo(change);
    }
}

void ToviMpiPanel::AdjustTo(const SettingChange& change)
{
    if (change.toggleStrips && !visualSetting.GetVisibleComment()) views.HideStrips();
    views.Cells().ForEach([&change](ToviSpiCtrl& cell) {
        if (change.refillCells) cell.FillInfo();
        if (change.layOutCells || change.toggleStrips) cell.LayoutChildren();
    });
    views.ReCalcCommentWindow();
}

// Layout

void ToviMpiPanel::Initialize()
{
    if (GetData() != nullptr) InitiateLayput(GetTopPosIndex());
}

void ToviMpiPanel::InitiateLayput(int top)
{
    const bool hadFocus = isAncestorOf(QApplication::focusWidget());
    pages.SetPhotosOnPage(static_cast<int>(visualSetting.GetCountOfSet()));
    pages.ResetPageCount(pages.NormalizeTopPhotoId(top, PhotoCount()), PhotoCount());
    views.Create(*GetData());
    views.RefillList();
    OnChangePage();
    views.CreateCommentWindow();
    RecalcLayout();
    if (hadFocus) views.Focus(SelectedPosition());
    TellMode();
    TellPage();
}

void ToviMpiPanel::resizeEvent(QResizeEvent* event)
{
    ToviPanel::resizeEvent(event);
    RecalcLayout();
}

void ToviMpiPanel::RecalcLayout()
{
    views.Place();
}

void ToviMpiPanel::focusInEvent(QFocusEvent*)
{
    views.Focus(SelectedPosition());
}

// Pages and the selection

int ToviMpiPanel::GetSelectIndexInPage() const
{
    return std::max(0, views.Cells().CellOf(SelectedPosition()));
}

ToviSpiCtrl* ToviMpiPanel::GetSelSpiCtrl() const
{
    const int index = views.Cells().CellOf(SelectedPosition());
    return index < 0 ? nullptr : &views.Cells().At(index);
}

int ToviMpiPanel::GetTopPosIndex() const
{
    const int selected = SelectedPosition();
    return selected >= 0 ? selected : pages.FirstPosition();
}

void ToviMpiPanel::GoToSelected()
{
    const int selected = SelectedPosition();
    if (selected >= 0) pages.SetCurrentPage(pages.GetPageNumber(selected, PhotoCount()) + 1);
}

void ToviMpiPanel::OnChangePage()
{
    if (views.Cells().Count() == 0) return;
    const int first = pages.FirstPosition();
    {
        // The focus that moves within a cell is no choice of the user's.
        const QSignalBlocker quiet(views);
        views.ShowPage(first);
    }
    if (GetSelSpiCtrl() == nullptr) OnSelect(first);
    FollowWithFocus();
    UpdateMultiDlg();
}

void ToviMpiPanel::ShowPage(int page)
{
    page = std::clamp(page, 1, std::max(1, GetTotalPage()));
    if (GetData() == nullptr || page == GetCurrentPage()) return;
    pages.SetCurrentPage(page);
    OnChangePage();
    views.CreateCommentWindow();
    views.ReCalcCommentWindow();
    TellPage();
}

bool ToviMpiPanel::OnSelect(int index)
{
    if (GetData() == nullptr) return false;
    if (!GetData()->PhotoSelectSetting(GetData()->GetIndexPhotoArray(index))) return false;
    InvalidateName();
    FollowWithFocus();
    views.ShowFloaty(true);
    UpdateMultiDlg();
    emit SelectionChanged();
    return true;
}

/// The focus stays in the same part of a cell while the selection moves. Left behind, it would
/// select its own cell as soon as it comes back from a menu or a dialog.
void ToviMpiPanel::FollowWithFocus()
{
    const QWidget* const focus = window()->focusWidget();
    ToviSpiCtrl* const cell = GetSelSpiCtrl();
    if (cell == nullptr || !isAncestorOf(focus) || cell->isAncestorOf(focus)) return;
    cell->FocusChild(CellChildOf(focus));
}

/// Selects the photograph at \p position and turns to its page.
void ToviMpiPanel::ShowPosition(int position)
{
    if (views.List() != nullptr) {
        SelectListItem(position);
    } else if (OnSelect(position)) {
        ShowPage(pages.GetPageNumber(position, PhotoCount()) + 1);
    }
}

void ToviMpiPanel::SelectListItem(int row)
{
    if (row < 0 || row >= PhotoCount()) return;
    views.List()->SelectItem(row);
}

void ToviMpiPanel::SelectCell(int index)
{
    if (index < views.Cells().Count()) OnSelect(views.Cells().At(index).GetPhotoIndex());
}

void ToviMpiPanel::SelectNeighbour(int step)
{
    if (views.List() != nullptr) {
        SelectListItem(views.List()->GetSelectionMark() + step);
    } else if (GetSelSpiCtrl() == nullptr) {
        SelectCell(0);
    } else {
        ShowPosition(SelectedPosition() + step);
    }
}

void ToviMpiPanel::OperateFirstPhoto()
{
    if (PhotoCount() > 0) ShowPosition(0);
}

void ToviMpiPanel::OperateLastPhoto()
{
    if (PhotoCount() > 0) ShowPosition(PhotoCount() - 1);
}

bool ToviMpiPanel::SelectNextUnchecked()
{
    if (GetData() == nullptr) return false;
    const int next = NextUnchecked(*GetData(), SelectedPosition());
    if (next < 0) return false;
    ShowPosition(next);
    return true;
}

void ToviMpiPanel::ShowPhoto(int photo)
{
    const int position = GetData() == nullptr ? -1 : GetData()->GetCurrentArray().Find(photo);
    if (position >= 0) ShowPosition(position);
}

void ToviMpiPanel::ApplyKeys()
{
    if (GetData() != nullptr) views.ShowLabelNames();
    zooms.ApplyKeys();
}

void ToviMpiPanel::InvalidateName()
{
    views.Cells().ForEach([](ToviSpiCtrl& cell) { cell.InvalidateNamePlate(); });
}

void ToviMpiPanel::TellPage()
{
    const std::pair now(GetCurrentPage(), GetTotalPage());
    if (std::exchange(toldPages, now) != now) emit PageChanged();
}

void ToviMpiPanel::TellMode()
{
    const Setting::DivideType now = visualSetting.GetDivType();
    if (std::exchange(toldMode, now) != now) emit ModeChanged();
}

// Mouse and keys on the cells

void ToviMpiPanel::OnSpiClicked(int index)
{
    if (&views.Cells().At(index) != GetSelSpiCtrl()) SelectCell(index);
}

void ToviMpiPanel::OnSpiDblClicked(int index)
{
    RequestZoom(views.Cells().At(index).GetPhotoIndex());
}

void ToviMpiPanel::OnSpiRClicked(int index)
{
    if (!OnSelect(views.Cells().At(index).GetPhotoIndex())) return;
    if (!RefuseInSlideMode(SlideModeRefusal::RightClick)) ShowPopUpMenu();
}

void ToviMpiPanel::RequestZoom(int position)
{
    ToviPhoto* const photo = GetData() == nullptr ? nullptr : GetData()->GetPhoto(position);
    if (photo != nullptr && photo->IsSelected()) OnShowProperty();
}

void ToviMpiPanel::ShowMultiDlg()
{
    if (GetData() == nullptr) return;
    zoomPhoto = GetData()->GetPhoto(SelectedPosition());
    zooms.Show(*GetData());
}

void ToviMpiPanel::UpdateMultiDlg()
{
    if (GetData() != nullptr) zooms.Follow(*GetData());
}

/// What no child has a use for. A shortcut would take Enter from dialogs that are about to come.
void ToviMpiPanel::keyPressEvent(QKeyEvent* event)
{
    if (IsEnter(event->key())) {
        if (!MakesDoubleClick(QApplication::focusWidget())) OnShowProperty();
    } else {
        ToviPanel::keyPressEvent(event);
    }
}

void ToviMpiPanel::OnSpiKeyDown(int key)
{
    if (IsEnter(key)) OnShowProperty();
    if (key == 0 || views.Cells().Count() == 0) return;
    const int focused = CellChildOf(window()->focusWidget());
    const std::optional<MoveKey> moveKey = MoveKeyOf(key);
    if (moveKey) Move(MoveOnPage(*moveKey, PositionOnPage()));
    ToviSpiCtrl* const cell = GetSelSpiCtrl();
    if (cell != nullptr) cell->FocusChild(focused);
}

CellPosition ToviMpiPanel::PositionOnPage() const
{
    return {.mode = visualSetting.GetDivType(),
            .cell = GetSelectIndexInPage(),
            .filledCells = GetCountInPage(),
            .page = GetCurrentPage(),
            .pages = GetTotalPage(),
            .position = SelectedPosition(),
            .photoCount = PhotoCount()};
}

void ToviMpiPanel::Move(const CellMove& move)
{
    switch (move.kind) {
    case CellMove::Nothing:
        break;
    case CellMove::PreviousPage:
        OperatePrevPage();
        break;
    case CellMove::NextPage:
        OperateNextPage();
        break;
    case CellMove::PreviousPhoto:
        OperatePrevPhoto();
        break;
    case CellMove::NextPhoto:
        OperateNextPhoto();
        break;
    case CellMove::SelectCell:
        SelectCell(move.cell);
        break;
    case CellMove::PreviousPageCell:
        ShowPosition(pages.FirstPosition() - pages.PhotosOnPage() + move.cell);
        break;
    }
}

void ToviMpiPanel::OnSpiPasteLabel(unsigned int label, ToviSpiCtrl* cell)
{
    labels.Paste({GetData()->GetIndexPhotoArray(cell->GetPhotoIndex())}, label);
}

void ToviMpiPanel::OnSpiRemoveLabel(unsigned int label, ToviSpiCtrl* cell)
{
    labels.Remove({GetData()->GetIndexPhotoArray(cell->GetPhotoIndex())}, label);
}

// Mouse and keys on the list

void ToviMpiPanel::OnRClicked(int row)
{
    if (OnSelect(row)) ShowPopUpMenu();
}

void ToviMpiPanel::OnListCtrlKeyDown(int key, int markBefore)
{
    const std::optional<MoveKey> moveKey = MoveKeyOf(key);
    if (!moveKey || views.List() == nullptr || !visualSetting.IsThumbListStyle()) return;
    Move({MoveOnList(*moveKey, markBefore, views.List()->GetSelectionMark(), PhotoCount())});
}

void ToviMpiPanel::OnFusen(unsigned int label)
{
    if (views.List() == nullptr || views.List()->GetSelected() < 0) return;
    if (label == LabelComment) {
        labels.Paste(SelectedPhotos(), label);
    } else {
        labels.Toggle(SelectedPhotos(), label);
    }
}
