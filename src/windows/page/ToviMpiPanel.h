#pragma once

#include "photos/LabelSlots.h"
#include "review/LabelEdits.h"
#include "windows/page/CellMoves.h"
#include "windows/page/PageArithmetic.h"
#include "windows/page/PhotoViews.h"
#include "windows/panel/LabelCommands.h"
#include "windows/panel/LabelMenuItems.h"
#include "windows/panel/PanelUpdates.h"
#include "windows/panel/ToviPanel.h"
#include "windows/position/PositionWindow.h"
#include "windows/zoom/ZoomWindows.h"

#include <QPointer>

class ToviPopUpMenu;
class VerdictEcho;

/// Photographs whose comment is to be written, what they are called, and their comment of now.
struct CommentedPhotos
{
    LabelCommands::Photos photos;
    QString words;
    CString comment;
};

/// The main viewing area: shows the current array of the document as pages of one to six cells or
/// as one list, and lets the user choose, label and comment its photographs.
///
/// Without other words an index is a position of the current array.
class TOVI_EXPORT ToviMpiPanel : public ToviPanel, private LabelCommands::Desk
{
    Q_OBJECT

public:
    /// \p theDocument is the host's and is handed on to the cells; null for none.
    explicit ToviMpiPanel(CDocument* theDocument = nullptr);

    void OnPreDetachData() override;
    void OnUpdate(CWnd* sender, ToviData::UpdateHint hint, CObject* object) override;

    /// The page on show, counted from 1, of how many; the list modes are one page.
    int GetCurrentPage() const { return pages.CurrentPage(); }
    /// 0 when there is no photograph.
    int GetTotalPage() const { return pages.TotalPage(); }
    /// The number of cells that hold a photograph.
    int GetCountInPage() const { return views.Cells().CountFilled(); }
    /// The place of the selected photograph's cell on the page, or 0.
    int GetSelectIndexInPage() const;
    /// The selected position, or else the first one of the page.
    int GetTopPosIndex() const;

    const ToviPhotoCtrlVisualSetting& GetVisualSetting() const { return visualSetting; }
    /// Shows the document under \p newSetting; \p force builds all anew.
    void SetVisualSetting(const ToviPhotoCtrlVisualSetting& newSetting, bool force);

    /// Turn pages. There is nothing before the first and behind the last one.
    void OperateTopPage() { ShowPage(1); }
    void OperateLastPage() { ShowPage(GetTotalPage()); }
    void OperateNextPage() { ShowPage(GetCurrentPage() + 1); }
    void OperatePrevPage() { ShowPage(GetCurrentPage() - 1); }
    /// Select the neighbour of the selected photograph, over the end of a page too.
    void OperateNextPhoto() { SelectNeighbour(1); }
    void OperatePrevPhoto() { SelectNeighbour(-1); }
    void OperateFirstPhoto();
    void OperateLastPhoto();
    /// Selects the next 未検査 photograph behind the selected one, from the first one on again
    /// behind the last. False when there is none.
    bool SelectNextUnchecked();
    /// Selects the photograph with the photo index \p photo and turns to it, if it is on show.
    void ShowPhoto(int photo);

    /// How many photographs are selected: several by choice in a list.
    int CountSelected() const;

    /// Lets the keys of now count (see CurrentKeys), and tells them in tips.
    void ApplyKeys();

    /// Act on the labels of the selected photographs that are in the current array, as one edit.
    /// The comment label stands for the comment: pasting it opens a dialog.
    void PasteLabel(int label);
    void RemoveLabel(int label);
    /// Pastes \p label, or removes it where all have it. True when it is pasted by that.
    bool ToggleLabel(int label);
    void OnRemoveAllLabel();
    /// The selected photographs, for a comment that is written elsewhere; none without a selection.
    CommentedPhotos SelectedForComment() const;
    /// Takes \p comment as that of \p photos.
    void SetComment(const LabelCommands::Photos& photos, const CString& comment);
    /// The same by the menu's numbers (see LabelMenuId).
    void OnPasteLabel(unsigned int id);
    void OnRemoveLabel(unsigned int id);
    /// The button of \p label in the floating tool bar of a list: the label is pasted or removed;
    /// the comment's always opens the dialog.
    void OnFusen(unsigned int label);
    /// Those buttons in their order.
    void OnFusen01() { OnFusen(LabelOk); }
    void OnFusen02() { OnFusen(LabelNg1); }
    void OnFusen03() { OnFusen(LabelNg2); }
    void OnFusen04() { OnFusen(LabelNg3); }
    void OnFusen05() { OnFusen(LabelComment); }
    void OnFusen06() { OnFusen(LabelFree); }
    /// Takes all labels and comments off the photographs of the current array.
    void AllPhotoAllLabelRemove();
    /// Shows \p text as the comment of the photograph at \p index: its position in a list mode, its
    /// cell in a paged one. An index that isn't on show throws InvalidArgument.
    void UpdateComment(int index, const CString& text);

    /// Shows the window 写真格納位置の確認, which follows the selection, or brings it to the top.
    void ShowConfirmDlg();
    /// Opens the menu of the selected photograph.
    void ShowPopUpMenu();
    /// Shows the floating tool bar of a list mode after a while, or hides it.
    void ShowFloaty(bool show) { views.ShowFloaty(show); }
    /// Shows in it the labels of the selected photograph.
    void EnableCtrlFloaty() { views.EnableFloaty(); }

    /// Shows the selected photograph in a zoom window (see ZoomWindows).
    void ShowMultiDlg();
    /// The same by the menu, by Enter and by a double click.
    void OnShowProperty() { ShowMultiDlg(); }
    /// Lets the zoom window that follows the selection show it.
    void UpdateMultiDlg();
    void DeleteAllDialog() { zooms.CloseAll(); }
    /// For the host: the photograph of the last zoom request; null when there was none since
    /// ClearMessageState.
    const ToviPhoto* GetZoomPhoto() const { return zoomPhoto; }
    void ClearMessageState() { zoomPhoto = nullptr; }
    ZoomWindows& Zooms() { return zooms; }
    const ZoomWindows& Zooms() const { return zooms; }

signals:
    /// The user wants the photographs in the order that the document has now.
    void OrderChanged();
    /// Another page is on show, or their number is another one.
    void PageChanged();
    /// Another display mode is on show.
    void ModeChanged();
    /// Another photograph is selected, or several others.
    void SelectionChanged();

protected:
    /// Lays out all anew for the present mode, at the photograph \p top.
    void InitiateLayput(int top);
    /// The same, at the selected photograph or else at the present page.
    void Initialize();
    /// Places the children.
    virtual void RecalcLayout();
    /// Shows the present page. The selection follows to its first photograph.
    void OnChangePage();
    /// Selects the photograph at \p index; false if there is none.
    bool OnSelect(int index);
    /// The cell of the selected photograph, or null.
    ToviSpiCtrl* GetSelSpiCtrl() const;
    /// Draws the name plates anew.
    void InvalidateName();
    /// Shows the labels and the comments of all photographs anew.
    void InvalidateAllCtrls();

    void resizeEvent(QResizeEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    using Setting = ToviPhotoCtrlVisualSetting;

    ToviData* Document() const override { return GetData(); }
    std::optional<CString> AskComment(const LabelCommands::Photos& photos,
                                      const CString& comment) override;
    void ShowEdit(const LabelEdit& edit) override;
    void ShowOutcome(const LabelEdit& edit);
    void ShowEcho(const LabelEdit& edit);
    void ShowChange(const LabelEdit::Change& change);

    int PhotoCount() const;
    int SelectedPosition() const;
    LabelCommands::Photos SelectedPhotos() const;
    LabelMenuItems EnabledItems() const;
    QString WordsFor(const LabelCommands::Photos& photos) const;
    void TakeStep(PanelStep step);
    void AdjustTo(const SettingChange& change);

    void GoToSelected();
    void ShowPage(int page);
    void ShowPosition(int position);
    void SelectNeighbour(int step);
    void SelectCell(int index);
    void SelectListItem(int row);
    void FollowWithFocus();
    void TellPage();
    void TellMode();

    void OnSpiClicked(int index);
    void OnSpiDblClicked(int index);
    void OnSpiRClicked(int index);
    void OnSpiKeyDown(int key);
    void OnSpiPasteLabel(unsigned int label, ToviSpiCtrl* cell);
    void OnSpiRemoveLabel(unsigned int label, ToviSpiCtrl* cell);
    CellPosition PositionOnPage() const;
    void Move(const CellMove& move);

    void OnRClicked(int row);
    void OnListCtrlKeyDown(int key, int markBefore);
    void RequestZoom(int position);
    void ConnectZooms();

    void OnMenuCommand(unsigned int id);
    void CloseMenu();
    QPoint MenuPlace() const;

    ToviPhotoCtrlVisualSetting visualSetting;
    PageArithmetic pages;
    PhotoViews views;
    LabelCommands labels;
    PositionWindow positionWindow;
    ZoomWindows zooms{*this};
    const ToviPhoto* zoomPhoto = nullptr;
    QPointer<ToviPopUpMenu> menu;
    VerdictEcho* echo;
    /// What the host was told last.
    std::pair<int, int> toldPages;
    std::optional<Setting::DivideType> toldMode;
};
