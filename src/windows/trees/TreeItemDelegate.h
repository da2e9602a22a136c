#pragma once

#include <QStyledItemDelegate>

class TreeCtrl;

/// Paints the items of a TreeCtrl: picture, text, and in blue the number of photographs. Only the
/// text of the selected item is highlighted, not its whole row.
class TreeItemDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit TreeItemDelegate(TreeCtrl* itsTree);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    /// Tells the text of an item that is not in view as a whole.
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

private:
    const TreeCtrl* tree;
};
