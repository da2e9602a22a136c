#pragma once

#include "windows/position/PositionTree.h"

#include <QTreeView>

/// The tree of the position window: all of it is open, and one item is marked. The user scrolls in
/// it, by keys too, and does nothing else.
class ToviConfirmTreeCtrl : public QTreeView
{
    Q_OBJECT

public:
    explicit ToviConfirmTreeCtrl(QWidget* parent);
    ~ToviConfirmTreeCtrl() override;

    /// Shows \p newTree, of the type \p treeType (items/TreeType.h), with no
    /// mark. Types that there aren't have no pictures.
    void Show(PositionTree newTree, int treeType);
    /// Marks the item of \p row of the tree and scrolls to it; PositionTree::none marks nothing.
    void Mark(int row);
    /// The row that is marked, or PositionTree::none.
    int GetMarked() const;
    const PositionTree& Tree() const;

protected:
    void drawBranches(QPainter* painter, const QRect& place,
                      const QModelIndex& index) const override;
    void mousePressEvent(QMouseEvent*) override {}
    void mouseMoveEvent(QMouseEvent*) override {}
    void mouseReleaseEvent(QMouseEvent*) override {}
    void mouseDoubleClickEvent(QMouseEvent*) override {}
    void contextMenuEvent(QContextMenuEvent*) override {}
    void keyPressEvent(QKeyEvent* event) override;

private:
    class Model;
    class Delegate;

    Model* nodes;
};
