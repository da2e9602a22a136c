#pragma once

#include "platform/text/Export.h"

#include <QIcon>
#include <QTreeWidget>

#include <functional>
#include <vector>

/// The tree of a tree panel: one item is selected, which stays so until another one is. A right
/// click selects nothing, and an item that closes takes the selection over from beneath it.
class TOVI_EXPORT TreeCtrl : public QTreeWidget
{
    Q_OBJECT

public:
    /// What an item carries besides its text (Qt::DisplayRole).
    enum ItemRole
    {
        /// What it stands for: its owner's business.
        DataRole = Qt::UserRole,
        /// The indexes of its picture and of its picture while it is selected.
        ImageRole,
        SelectedImageRole,
        /// A number of photographs, painted behind the text, which is bold then; 0 for none.
        CountRole,
        /// True while a menu is open for it.
        MarkRole,
        /// True where the text is a path: it is cut in its middle instead of being scrolled to.
        PathRole,
        /// What the tip says in front of the text.
        TipRole
    };
    /// What is painted in grey behind an item that stands for this (DataRole), as far as there is
    /// room; empty for nothing.
    using NoteOf = std::function<QString(const QVariant& data)>;

    explicit TreeCtrl(QWidget* parent);

    /// The pictures of the items, whose sides are \p side pixels of the layout.
    void SetImages(std::vector<QIcon> icons, int side);
    const std::vector<QIcon>& GetImages() const { return images; }
    /// No item has a note at first, nor with null.
    void SetNotes(NoteOf notes);
    QString Note(const QModelIndex& index) const;

    /// The selected item; null when there is none.
    QTreeWidgetItem* GetSelectedItem() const;
    /// The topmost item; null when there is none.
    QTreeWidgetItem* GetRootItem() const { return topLevelItem(0); }
    /// Opens \p item and all beneath it.
    void AllOpenTreeItem(QTreeWidgetItem* item);
    /// Closes \p item and all beneath it.
    void AllCloseTreeItem(QTreeWidgetItem* item);

protected:
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event) const override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void drawBranches(QPainter* painter, const QRect& place,
                      const QModelIndex& index) const override;

private:
    /// Opens or closes \p top and all beneath it, with one layout and without a signal.
    void SetExpandedUnder(QTreeWidgetItem* top, bool isExpanded);
    /// Moves a selection beneath \p item, where it can't be seen any more, to \p item.
    void TakeOverSelection(QTreeWidgetItem* item);

    std::vector<QIcon> images;
    NoteOf noteOf;
};
