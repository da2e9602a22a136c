#include "windows/trees/TreeItemDelegate.h"

#include "platform/controls/GaluFont.h"
#include "platform/pictures/QtColor.h"
#include "windows/trees/TreeCtrl.h"

#include <QApplication>
#include <QHelpEvent>
#include <QPainter>
#include <QTextDocument>
#include <QToolTip>

static constexpr unsigned long countColor = 14443040;
static constexpr int textGap = 4;
static constexpr int countGap = 5;
static constexpr int rowSpace = 6;

namespace
{
/// What an item shows, and where in the row \p row.
struct ShownItem
{
    ShownItem(const QModelIndex& index, const QRect& row, int imageSide)
        : count(index.data(TreeCtrl::CountRole).toInt()),
          font(count > 0 ? GaluFont::MsPGothic9ptBold() : GaluFont::MsPGothic9pt()),
          text(index.data().toString()), countText(count > 0 ? QString::number(count) : QString()),
          image(row.left(), row.center().y() - imageSide / 2 + 1, imageSide, imageSide)
    {
        const QFontMetrics metrics(font);
        const int top = row.center().y() - metrics.height() / 2;
        textPlace.setRect(image.right() + 1 + textGap, top, metrics.horizontalAdvance(text),
                          metrics.height());
        countPlace.setRect(textPlace.right() + 1 + countGap, top,
                           metrics.horizontalAdvance(countText), metrics.height());
    }

    int count;
    QFont font;
    QString text;
    QString countText;
    QRect image;
    QRect textPlace;
    QRect countPlace;
};

void DrawText(QPainter& painter, const QRect& place, const QString& text)
{
    painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text);
}

void DrawFrame(QPainter& painter, const QRect& place, const QStyleOptionViewItem& option,
               const QColor& background)
{
    QStyleOptionFocusRect frame;
    frame.QStyleOption::operator=(option);
    frame.rect = place;
    frame.state |= QStyle::State_KeyboardFocusChange;
    frame.backgroundColor = background;
    const QStyle* style = option.widget != nullptr ? option.widget->style() : QApplication::style();
    style->drawPrimitive(QStyle::PE_FrameFocusRect, &frame, &painter, option.widget);
}
} // namespace

TreeItemDelegate::TreeItemDelegate(TreeCtrl* itsTree) : QStyledItemDelegate(itsTree), tree(itsTree)
{}

void TreeItemDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                             const QModelIndex& index) const
{
    const bool isSelected = (option.state & QStyle::State_Selected) != 0;
    const bool hasFocus = (option.state & QStyle::State_HasFocus) != 0;
    const ShownItem item(index, option.rect, tree->iconSize().width());
    const QPalette::ColorGroup group =
        (option.state & QStyle::State_Active) != 0 ? QPalette::Active : QPalette::Inactive;
    const QColor highlight = option.palette.color(group, QPalette::Highlight);

    painter->save();
    painter->fillRect(option.rect, Qt::white);
    const int role = isSelected ? TreeCtrl::SelectedImageRole : TreeCtrl::ImageRole;
    const auto image = index.data(role).toUInt();
    if (image < tree->GetImages().size()) tree->GetImages()[image].paint(painter, item.image);

    const QRect mark = item.textPlace.adjusted(-1, 0, 2, 0);
    if (isSelected) painter->fillRect(mark, highlight);
    if (hasFocus || index.data(TreeCtrl::MarkRole).toBool()) {
        DrawFrame(*painter, mark, option, isSelected ? highlight : Qt::white);
    }
    painter->setFont(item.font);
    painter->setPen(isSelected ? option.palette.color(group, QPalette::HighlightedText)
                               : QColor(Qt::black));
    DrawText(*painter, item.textPlace, item.text);
    painter->setPen(QtColor(countColor));
    DrawText(*painter, item.countPlace, item.countText);
    painter->restore();
}

QSize TreeItemDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex& index) const
{
    const ShownItem item(index, QRect(), tree->iconSize().width());
    return {item.countPlace.right() + 1 + textGap,
            std::max(item.image.height(), item.textPlace.height()) + rowSpace};
}

bool TreeItemDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                                 const QStyleOptionViewItem& option, const QModelIndex& index)
{
    const ShownItem item(index, option.rect, tree->iconSize().width());
    const QRect seen = tree->viewport()->rect();
    const bool isWhole = item.textPlace.left() >= 0 && item.countPlace.right() <= seen.right();
    QToolTip::showText(
        event->globalPos(),
        isWhole ? QString() : Qt::convertFromPlainText(item.text, Qt::WhiteSpaceNormal), view);
    return true;
}
