#include "windows/position/ToviConfirmTreeCtrl.h"

#include "items/TreeType.h"
#include "platform/controls/GaluFont.h"
#include "platform/pictures/QtColor.h"
#include "platform/text/QtText.h"
#include "windows/pictures/Pictures.h"
#include "windows/trees/TreePanelRules.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>

#include <algorithm>

namespace
{
constexpr unsigned long paperColor = 0xF7EBE4;
constexpr QColor lineColor(160, 175, 195);
constexpr int imageSide = 16;
constexpr int textGap = 4;
constexpr int rowSpace = 6;
/// What an item carries besides its text: its picture while it is marked.
constexpr int markedImageRole = Qt::UserRole;

bool HasPictures(int treeType)
{
    return treeType == TreeWorkTypeFull || treeType == TreePlace || treeType == TreeWorkType;
}
} // namespace

class ToviConfirmTreeCtrl::Model : public QAbstractItemModel
{
public:
    using QAbstractItemModel::QAbstractItemModel;

    void Show(PositionTree newTree, int treeType)
    {
        beginResetModel();
        tree = std::move(newTree);
        const FolderTreeImages images = FolderTreeImagesOf(treeType);
        icons = HasPictures(treeType) ? PictureIcons(images.number) : std::vector<QIcon>();
        markedRoot = images.selectedRoot;
        endResetModel();
    }
    const PositionTree& Tree() const { return tree; }

    int RowOf(const QModelIndex& index) const
    {
        return index.isValid() ? static_cast<int>(index.internalId()) : PositionTree::none;
    }
    QModelIndex IndexOf(int row) const
    {
        if (row == PositionTree::none) return {};
        return createIndex(tree.At(row).place, 0, static_cast<quintptr>(row));
    }

    QModelIndex index(int place, int column, const QModelIndex& parent) const override
    {
        if (!hasIndex(place, column, parent)) return {};
        return IndexOf(parent.isValid() ? ChildrenOf(parent)[static_cast<std::size_t>(place)] : 0);
    }
    QModelIndex parent(const QModelIndex& index) const override
    {
        return IndexOf(tree.At(RowOf(index)).parent);
    }
    int rowCount(const QModelIndex& parent) const override
    {
        if (!parent.isValid()) return std::min(1, tree.Count());
        return static_cast<int>(ChildrenOf(parent).size());
    }
    int columnCount(const QModelIndex&) const override { return 1; }

    QVariant data(const QModelIndex& index, int role) const override
    {
        const PositionTree::Node& node = tree.At(RowOf(index));
        switch (role) {
        case Qt::DisplayRole:
        case Qt::ToolTipRole:
            return QtText(node.title);
        case Qt::DecorationRole:
            return Icon(node.level);
        case markedImageRole:
            return Icon(markedRoot + node.level);
        default:
            return {};
        }
    }

private:
    const std::vector<int>& ChildrenOf(const QModelIndex& index) const
    {
        return tree.At(RowOf(index)).children;
    }
    QIcon Icon(int number) const
    {
        const auto place = static_cast<std::size_t>(number);
        return place < icons.size() ? icons[place] : QIcon();
    }

    PositionTree tree;
    std::vector<QIcon> icons;
    int markedRoot = 0;
};

/// The mark is as strong without the focus as with it: it is what the window is for.
class ToviConfirmTreeCtrl::Delegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override
    {
        const bool isMarked = (option.state & QStyle::State_Selected) != 0;
        QRect image(option.rect.topLeft(), QSize(imageSide, imageSide));
        image.moveTop(option.rect.center().y() - imageSide / 2);
        const auto icon =
            index.data(isMarked ? markedImageRole : Qt::DecorationRole).value<QIcon>();
        const QString text = index.data().toString();
        const int width = option.fontMetrics.horizontalAdvance(text) + 2 * textGap;
        const QRect place(image.right() + 1, option.rect.top(), width, option.rect.height());

        painter->save();
        painter->fillRect(option.rect, QtColor(paperColor));
        icon.paint(painter, image);
        if (isMarked) {
            painter->fillRect(place, option.palette.color(QPalette::Active, QPalette::Highlight));
        }
        painter->setPen(isMarked ? option.palette.color(QPalette::Active, QPalette::HighlightedText)
                                 : QColor(Qt::black));
        painter->setFont(option.font);
        painter->drawText(place.adjusted(textGap, 0, 0, 0),
                          Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text);
        painter->restore();
    }

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        const int width = option.fontMetrics.horizontalAdvance(index.data().toString());
        return {imageSide + width + 3 * textGap,
                std::max(imageSide, option.fontMetrics.height()) + rowSpace};
    }
};

ToviConfirmTreeCtrl::ToviConfirmTreeCtrl(QWidget* parent)
    : QTreeView(parent), nodes(new Model(this))
{
    // The light paper is the same in every palette.
    QPalette paper = palette();
    paper.setColor(QPalette::Base, QtColor(paperColor));
    paper.setColor(QPalette::Text, Qt::black);
    setPalette(paper);
    setFont(GaluFont::MsPGothic9pt());
    setAccessibleName(QStringLiteral("写真格納位置"));
    setHeaderHidden(true);
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    setHorizontalScrollMode(ScrollPerPixel);
    setUniformRowHeights(true);
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setEditTriggers(NoEditTriggers);
    setItemDelegate(new Delegate(this));
    setModel(nodes);
}

ToviConfirmTreeCtrl::~ToviConfirmTreeCtrl() = default;

void ToviConfirmTreeCtrl::Show(PositionTree newTree, int treeType)
{
    nodes->Show(std::move(newTree), treeType);
    expandAll();
}

void ToviConfirmTreeCtrl::Mark(int row)
{
    const QModelIndex index = nodes->IndexOf(row);
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
    if (index.isValid()) scrollTo(index);
}

int ToviConfirmTreeCtrl::GetMarked() const
{
    return nodes->RowOf(currentIndex());
}

const PositionTree& ToviConfirmTreeCtrl::Tree() const
{
    return nodes->Tree();
}

/// Lines without the buttons that would close an item.
void ToviConfirmTreeCtrl::drawBranches(QPainter* painter, const QRect& place,
                                       const QModelIndex& index) const
{
    painter->save();
    painter->fillRect(place, palette().base());
    painter->setPen(lineColor);
    const int middle = place.center().y();
    int x = place.right() - indentation() / 2;
    for (QModelIndex level = index; level.parent().isValid(); level = level.parent()) {
        const bool isItem = level == index;
        const bool hasNext = level.siblingAtRow(level.row() + 1).isValid();
        if (isItem) painter->drawLine(x, middle, place.right(), middle);
        if (isItem) painter->drawLine(x, place.top(), x, middle);
        if (hasNext) painter->drawLine(x, isItem ? middle : place.top(), x, place.bottom());
        x -= indentation();
    }
    painter->restore();
}

void ToviConfirmTreeCtrl::keyPressEvent(QKeyEvent* event)
{
    using enum QAbstractSlider::SliderAction;
    switch (event->key()) {
    case Qt::Key_Up:
        return verticalScrollBar()->triggerAction(SliderSingleStepSub);
    case Qt::Key_Down:
        return verticalScrollBar()->triggerAction(SliderSingleStepAdd);
    case Qt::Key_PageUp:
        return verticalScrollBar()->triggerAction(SliderPageStepSub);
    case Qt::Key_PageDown:
        return verticalScrollBar()->triggerAction(SliderPageStepAdd);
    case Qt::Key_Home:
        return verticalScrollBar()->triggerAction(SliderToMinimum);
    case Qt::Key_End:
        return verticalScrollBar()->triggerAction(SliderToMaximum);
    case Qt::Key_Left:
        return horizontalScrollBar()->triggerAction(SliderSingleStepSub);
    case Qt::Key_Right:
        return horizontalScrollBar()->triggerAction(SliderSingleStepAdd);
    default:
        break;
    }
}
