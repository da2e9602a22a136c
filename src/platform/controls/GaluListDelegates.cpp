#include "platform/controls/GaluListDelegates.h"

#include <QApplication>
#include <QPainter>
#include <QTextLayout>

namespace
{
/// What a row of a report is higher than its text.
constexpr int rowGap = 4;
constexpr int textGap = 2;
constexpr int textLines = 2;

/// Draws \p text centred from the top of \p place, and cuts off what two lines don't hold.
void DrawLines(QPainter& painter, const QRect& place, const QString& text)
{
    QTextLayout layout(text, painter.font());
    layout.setTextOption([] {
        QTextOption option;
        option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        return option;
    }());
    const QFontMetrics metrics = painter.fontMetrics();
    QRect line(place.topLeft(), QSize(place.width(), metrics.lineSpacing()));
    layout.beginLayout();
    for (int number = 1; number <= textLines; ++number) {
        QTextLine cut = layout.createLine();
        if (!cut.isValid()) break;
        cut.setLineWidth(place.width());
        const QString rest = text.mid(cut.textStart());
        const QString shown = number == textLines
                                  ? metrics.elidedText(rest, Qt::ElideRight, place.width())
                                  : rest.left(cut.textLength());
        painter.drawText(line, Qt::AlignCenter | Qt::TextSingleLine, shown);
        line.translate(0, metrics.lineSpacing());
    }
    layout.endLayout();
}

/// A line of the text's colour inside the edge of the item.
void DrawFocusFrame(QPainter& painter, const QStyleOptionViewItem& item)
{
    const bool selected = item.state & QStyle::State_Selected;
    painter.save();
    painter.setPen(item.palette.color(selected ? QPalette::HighlightedText : QPalette::Text));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(item.rect.adjusted(1, 1, -2, -2));
    painter.restore();
}

QPalette::ColorGroup GroupOf(const QStyleOptionViewItem& option)
{
    return option.state & QStyle::State_Active ? QPalette::Active : QPalette::Inactive;
}
} // namespace

void ReportDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                           const QModelIndex& index) const
{
    QStyledItemDelegate::paint(painter, option, index);
    if (!gridLines) return;
    painter->save();
    painter->setPen(option.palette.color(QPalette::Midlight));
    painter->drawLine(option.rect.topRight(), option.rect.bottomRight());
    painter->drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
    painter->restore();
}

QSize ReportDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    return QStyledItemDelegate::sizeHint(option, index) + QSize(0, rowGap);
}

void IconDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const
{
    QStyleOptionViewItem item = option;
    initStyleOption(&item, index);
    const QStyle& style = item.widget != nullptr ? *item.widget->style() : *QApplication::style();
    style.drawPrimitive(QStyle::PE_PanelItemViewItem, &item, painter, item.widget);

    painter->save();
    QRect picture({0, 0}, image);
    picture.moveCenter(item.rect.center());
    picture.moveTop(item.rect.top() + textGap);
    item.icon.paint(painter, picture);
    const bool selected = item.state & QStyle::State_Selected;
    painter->setFont(item.font);
    painter->setPen(
        item.palette.color(GroupOf(item), selected ? QPalette::HighlightedText : QPalette::Text));
    const QRect below(item.rect.left() + textGap, picture.bottom() + 1 + textGap,
                      item.rect.width() - 2 * textGap, item.rect.bottom() - picture.bottom());
    DrawLines(*painter, below, item.text);
    painter->restore();

    // A frame alone: the focus rectangle of some styles is filled, which tints the picture.
    if (item.state & QStyle::State_HasFocus) DrawFocusFrame(*painter, item);
}

QSize IconDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const
{
    return spacing;
}
