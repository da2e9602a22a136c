#pragma once

#include "platform/controls/GaluListCtrl.h"
#include "windows/list/PhotoListSource.h"
#include "windows/list/RowsInSight.h"

class PhotoListTable;
class ToviCommentWindow;
class ToviLabelManager;
class WenToolBarCtrl;

/// All photographs of the current array in one scrolling list: thumbnails (Look::Icon) or lines
/// with columns (Look::Report). Below them stands a tool bar with the labels of the selected one,
/// the floaty, where it covers none. A click on a header changes the order, a menu on it hides
/// leading columns.
///
/// Selection, places and scrolling are those of the base. Its signal Scrolled also tells that a key
/// was handled, after KeyPressed.
class TOVI_EXPORT ToviPhotoListCtrl : public GaluListCtrl
{
    Q_OBJECT

public:
    /// An empty list; one of the two calls below fills it. \p theSource outlives it.
    ToviPhotoListCtrl(Look listLook, PhotoListSource& theSource, QWidget* parent);
    ~ToviPhotoListCtrl() override;

    /// Fills the list anew and drops all tiles. The source's selected row, or the first if there is
    /// none, is selected (which ItemSelected tells) and in view, and the floaty enabled. Tiles
    /// and texts are asked for when a row is drawn.
    void SetupThumbListCtrl();
    /// The same for the report view, with the source's columns. The window with the focus keeps it.
    void SetupMngmntListCtrl();

    /// Selects \p row, moves the mark there and brings it into view.
    void SelectItem(int row);
    /// Drops the tile of \p row, so that the next drawing, which is asked for, builds it anew.
    void ResetItem(int row);
    /// The same for all rows.
    void UpdateImageList();

    /// Lets the user press the floaty's buttons while a row is selected, or not.
    void EnableFloaty(bool enable);
    /// Lets the floaty's button of \p label (0 to 5) show whether the label is pasted. The
    /// comment's never looks pressed.
    void SetButtonState(int label, bool pasted);

    /// Calls the floaty's buttons by the names in \p labels and tells their keys.
    void ShowLabelNames(const ToviLabelManager& labels);

    /// The comment strip \p strip, a child of View()->viewport(), was clicked: selects its
    /// photograph.
    void OnCommentWindowClicked(const ToviCommentWindow* strip);
    /// One was double-clicked: acts as the floaty's button for comments.
    void OnCommentWindowDblClicked();

signals:
    /// The user pressed the floaty's button of \p label.
    void FloatyPressed(unsigned int label);
    /// The rows are to come in another order, which the source knows.
    void OrderChanged();
    /// \p row has become the selected one, by the user or by a call.
    void ItemSelected(int row);
    /// No row is selected any more.
    void SelectionCleared();
    /// The base's DoubleClicked and RightClicked, for places with an item alone.
    void ItemDoubleClicked(int row);
    void ItemRightClicked(int row);

protected:
    /// Right at the last item.
    bool IsKeyIgnored(int key) const override;
    void OnKey(int key, int markBefore) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void CreateFloaty();
    void ConnectBase();
    void Refill();
    void TellRowsInSight();
    void GiveWidths();
    void KeepWidths();
    void ShowHeaderMenu(const QPoint& place);

    PhotoListSource& source;
    PhotoListTable* table;
    /// What the source was told last.
    RowRange rowsTold;
    WenToolBarCtrl* floaty = nullptr;
    /// The widths of the columns as far as they were not changed by the user since.
    std::vector<int> givenWidths;
};
