#include "windows/trees/TreeCtrl.h"

#include "platform/controls/GaluFont.h"
#include "windows/trees/TreeItemDelegate.h"

#include <QHeaderView>
#include <QMouseEvent>
#include <QPainter>
#include <QSignalBlocker>

static constexpr QColor lineColor(200, 205, 210);

namespace
{
bool IsBeneath(const QTreeWidgetItem* item, const QTreeWidgetItem* above)
{
    while (item != nullptr && item != above) item = item->parent();
    return item != nullptr;
}
} // namespace

TreeCtrl::TreeCtrl(QWidget* parent) : QTreeWidget(parent)
{
    setFont(GaluFont::MsPGothic9pt());
    setHeaderHidden(true);
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    setHorizontalScrollMode(ScrollPerPixel);
    setUniformRowHeights(true);
    setEditTriggers(NoEditTriggers);
    setItemDelegate(new TreeItemDelegate(this));
    connect(this, &QTreeWidget::itemCollapsed, this, &TreeCtrl::TakeOverSelection);
}

void TreeCtrl::SetImages(std::vector<QIcon> icons, int side)
{
    images = std::move(icons);
    setIconSize({side, side});
}

void TreeCtrl::SetNotes(NoteOf notes)
{
    noteOf = std::move(notes);
    viewport()->update();
}

QString TreeCtrl::Note(const QModelIndex& index) const
{
    return noteOf ? noteOf(index.data(DataRole)) : QString();
}

QTreeWidgetItem* TreeCtrl::GetSelectedItem() const
{
    const QList<QTreeWidgetItem*> selected = selectedItems();
    return selected.isEmpty() ? nullptr : selected.front();
}

void TreeCtrl::AllOpenTreeItem(QTreeWidgetItem* item)
{
    SetExpandedUnder(item, true);
}

void TreeCtrl::AllCloseTreeItem(QTreeWidgetItem* item)
{
    SetExpandedUnder(item, false);
    TakeOverSelection(item);
}

void TreeCtrl::SetExpandedUnder(QTreeWidgetItem* top, bool isExpanded)
{
    const QSignalBlocker quiet(this);
    scheduleDelayedItemsLayout();
    std::vector<QModelIndex> open = {indexFromItem(top)};
    while (!open.empty()) {
        const QModelIndex index = open.back();
        open.pop_back();
        const int children = model()->rowCount(index);
        if (children > 0) setExpanded(index, isExpanded);
        for (int row = 0; row < children; ++row) open.push_back(model()->index(row, 0, index));
    }
}

void TreeCtrl::TakeOverSelection(QTreeWidgetItem* item)
{
    if (IsBeneath(GetSelectedItem(), item)) setCurrentItem(item);
}

QItemSelectionModel::SelectionFlags TreeCtrl::selectionCommand(const QModelIndex& index,
                                                               const QEvent*) const
{
    if (!index.isValid()) return QItemSelectionModel::NoUpdate;
    return QItemSelectionModel::ClearAndSelect;
}

void TreeCtrl::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) QTreeWidget::mousePressEvent(event);
}

void TreeCtrl::mouseMoveEvent(QMouseEvent* event)
{
    if (event->buttons() == Qt::NoButton) QTreeWidget::mouseMoveEvent(event);
}

void TreeCtrl::drawBranches(QPainter* painter, const QRect& place, const QModelIndex& index) const
{
    painter->save();
    // The style highlights these places of the selected row, too.
    painter->fillRect(place, palette().base());
    painter->setPen(lineColor);
    const int middle = place.center().y();
    int x = place.right() - indentation() / 2;
    painter->drawLine(x, middle, place.right(), middle);
    if (index.parent().isValid()) painter->drawLine(x, place.top(), x, middle);
    for (QModelIndex level = index; level.isValid(); level = level.parent()) {
        const bool hasNext = level.siblingAtRow(level.row() + 1).isValid();
        if (hasNext) painter->drawLine(x, level == index ? middle : place.top(), x, place.bottom());
        x -= indentation();
    }
    if (index.model()->hasChildren(index)) {
        QRect button(0, 0, 13, 13);
        button.moveCenter({place.right() - indentation() / 2, middle});
        painter->fillRect(button, palette().base());
    }
    painter->restore();
    QTreeWidget::drawBranches(painter, place, index);
}
