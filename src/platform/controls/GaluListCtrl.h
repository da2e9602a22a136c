#pragma once

#include "platform/text/Export.h"

#include <QModelIndex>
#include <QWidget>

#include <vector>

class QAbstractItemModel;
class QAbstractItemView;
class QListView;
class QTreeView;

/// The base of the list windows: one selected item at most, or several by choice, shown as selected
/// without the focus too. Its model is asked for what is in sight alone, however many rows it has;
/// a model may read files for an answer.
class TOVI_EXPORT GaluListCtrl : public QWidget
{
    Q_OBJECT

public:
    enum class Look
    {
        /// Lines with columns under a header.
        Report,
        /// Pictures with a text below, in lines that fill the width.
        Icon
    };

    GaluListCtrl(Look listLook, QWidget* parent = nullptr);

    Look GetLook() const { return look; }
    /// Shows \p model, which outlives the list or is its child. Each column of it is one of the
    /// report view; the icon view shows the first column's text and decoration.
    void SetModel(QAbstractItemModel* model);
    /// The view inside, for the places of other windows over it.
    QAbstractItemView* View() const { return view; }

    int GetItemCount() const;
    /// Lets the user select several rows, by Ctrl, Shift and Ctrl+A.
    void SelectSeveral();
    /// The selected row, or -1; of several the one from which the keyboard moves, or else the
    /// first.
    int GetSelected() const;
    /// All selected rows in order, and how many there are.
    std::vector<int> GetSelectedRows() const;
    int GetSelectedCount() const;
    /// The row from which the keyboard moves, or -1.
    int GetSelectionMark() const;
    /// Selects \p row and moves the mark there; one that doesn't exist (-1) leaves none selected.
    void Select(int row);
    void EnsureVisible(int row);
    /// The place of \p row in the coordinates of View()->viewport(), in or out of sight; empty if
    /// there is no such row.
    QRect GetItemRect(int row) const;
    /// Asks anew for what \p row shows.
    void RedrawItem(int row);

    /// For the report view. A column of width 0 is hidden.
    void SetColumnWidth(int column, int width);
    int GetColumnWidth(int column) const;
    void SetGridLines(bool show);

    /// For the icon view: an item has a picture of \p imageSize and takes \p spacing, both in
    /// pixels of the layout.
    void SetIconSpacing(QSize imageSize, QSize spacing);

    /// Of a report: its header can be clicked, and shows that the rows are sorted by \p column, or
    /// by none for -1.
    void ShowOrder(int column, bool ascending);
    /// Makes \p column as wide as what is in sight of it and its title need, but at most \p most.
    void FitColumn(int column, int most);

signals:
    /// The header of \p column was clicked, or a menu for it is wanted at \p place on the screen.
    void HeaderClicked(int column);
    void HeaderMenuRequested(const QPoint& place);
    /// An item was pressed: \p row, or -1 for a place without one.
    void Clicked(int row);
    /// An item was double-clicked, or Enter was pressed at it.
    void DoubleClicked(int row);
    /// As Clicked, with the right button or, at the selected item, the menu key.
    void RightClicked(int row);
    /// \p row is GetSelected.
    void SelectionChanged(int row);
    /// The list has handled the key \p key (a Qt::Key); \p markBefore is the mark until then.
    void KeyPressed(int key, int markBefore);
    void Scrolled();
    /// The user starts and ends changing a column's width.
    void HeaderDragBegan();
    void HeaderDragEnded();

protected:
    /// True for a key that the list is to leave alone altogether. None at first.
    virtual bool IsKeyIgnored(int key) const;
    /// Tells of a key that was handled, by KeyPressed.
    virtual void OnKey(int key, int markBefore);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    template <class Base>
    class Hooked;
    class IconList;

    void SetUpReport();
    void SetUpIcons();
    QModelIndex Index(int row) const;

    Look look;
    QTreeView* report = nullptr;
    QListView* icons = nullptr;
    QAbstractItemView* view = nullptr;
    bool headerPressed = false;
    bool headerDragged = false;
};
