#include "windows/trees/TreeItemDelegate.h"

#include "platform/controls/GaluFont.h"
#include "platform/controls/ReadableColor.h"
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
static constexpr int noteGap = 8;
/// What is left of a path at the least.
static constexpr int smallestPath = 80;
static constexpr int rowSpace = 6;

namespace
{
QFont FontOf(int count)
{
    return count > 0 ? GaluFont::MsPGothic9ptBold() : GaluFont::MsPGothic9pt();
}

/// What an item shows, and where in the row \p row.
struct ShownItem
{
    ShownItem(const TreeCtrl& tree, const QModelIndex& index, const QRect& row)
        : count(index.data(TreeCtrl::CountRole).toInt()), font(FontOf(count)),
          text(index.data().toString()), countText(count > 0 ? QString::number(count) : QString()),
          note(tree.Note(index)), isPath(index.data(TreeCtrl::PathRole).toBool()),
          image(row.left(), row.center().y() - tree.iconSize().height() / 2 + 1,
                tree.iconSize().width(), tree.iconSize().height())
    {
        const QFontMetrics metrics(font);
        const QFontMetrics plain(FontOf(0));
        const int top = row.center().y() - metrics.height() / 2;
        const int left = image.right() + 1 + textGap;
        const int noteWidth = plain.horizontalAdvance(note);
        if (isPath) {
            const int right = tree.viewport()->width();
            const int room = right - left - countGap - noteWidth - textGap;
            text = metrics.elidedText(text, Qt::ElideMiddle, std::max(room, smallestPath));
        }
        textPlace.setRect(left, top, metrics.horizontalAdvance(text), metrics.height());
        countPlace.setRect(textPlace.right() + 1 + countGap, top,
                           metrics.horizontalAdvance(countText), metrics.height());
        const int gap = count > 0 ? noteGap : 0;
        notePlace.setRect(countPlace.right() + 1 + gap, top, noteWidth, metrics.height());
    }

    /// The right edge of what has to be seen; a note may be cut off.
    int Right() const
    {
        return isPath ? image.right() + textGap + smallestPath : countPlace.right();
    }

    int count;
    QFont font;
    QString text;
    QString countText;
    QString note;
    bool isPath;
    QRect image;
    QRect textPlace;
    QRect countPlace;
    QRect notePlace;
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
    const ShownItem item(*tree, index, option.rect);
    const QPalette::ColorGroup group =
        (option.state & QStyle::State_Active) != 0 ? QPalette::Active : QPalette::Inactive;
    const QColor highlight = option.palette.color(group, QPalette::Highlight);

    painter->save();
    const QColor paper = option.palette.color(QPalette::Base);
    painter->fillRect(option.rect, paper);
    const int role = isSelected ? TreeCtrl::SelectedImageRole : TreeCtrl::ImageRole;
    const auto image = index.data(role).toUInt();
    if (image < tree->GetImages().size()) tree->GetImages()[image].paint(painter, item.image);

    const QRect mark = item.textPlace.adjusted(-1, 0, 2, 0);
    if (isSelected) painter->fillRect(mark, highlight);
    if (hasFocus || index.data(TreeCtrl::MarkRole).toBool()) {
        DrawFrame(*painter, mark, option, isSelected ? highlight : paper);
    }
    painter->setFont(item.font);
    painter->setPen(isSelected ? option.palette.color(group, QPalette::HighlightedText)
                               : option.palette.color(QPalette::Text));
    DrawText(*painter, item.textPlace, item.text);
    painter->setPen(ReadableOn(paper, QtColor(countColor)));
    DrawText(*painter, item.countPlace, item.countText);
    painter->setFont(FontOf(0));
    painter->setPen(option.palette.color(QPalette::PlaceholderText));
    const int room = tree->viewport()->width() - item.notePlace.left();
    DrawText(*painter, item.notePlace,
             painter->fontMetrics().elidedText(item.note, Qt::ElideRight, room));
    painter->restore();
}

QSize TreeItemDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex& index) const
{
    const ShownItem item(*tree, index, QRect());
    return {item.Right() + 1 + textGap,
            std::max(item.image.height(), item.textPlace.height()) + rowSpace};
}

bool TreeItemDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                                 const QStyleOptionViewItem& option, const QModelIndex& index)
{
    const ShownItem item(*tree, index, option.rect);
    const QRect seen = tree->viewport()->rect();
    QString text = index.data().toString();
    const QString front = index.data(TreeCtrl::TipRole).toString();
    const bool isWhole = front.isEmpty() && text == item.text && item.textPlace.left() >= 0 &&
                         std::max(item.countPlace.right(), item.notePlace.right()) <= seen.right();
    if (!front.isEmpty()) text = front + QLatin1Char('\n') + text;
    if (!item.note.isEmpty()) text += QStringLiteral("（%1）").arg(item.note);
    QToolTip::showText(event->globalPos(),
                       isWhole ? QString() : Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal),
                       view);
    return true;
}
