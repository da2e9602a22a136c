#include "platform/controls/GaluDSplitter.h"

#include <QKeyEvent>
#include <QStyleOptionFocusRect>
#include <QStylePainter>

#include <algorithm>
#include <cstdlib>

namespace
{
constexpr int keyStep = 10;
constexpr int handleSize = 6;

class Handle : public QSplitterHandle
{
public:
    Handle(Qt::Orientation panes, QSplitter* splitter) : QSplitterHandle(panes, splitter)
    {
        setFocusPolicy(Qt::TabFocus);
        setAccessibleName(QStringLiteral("仕切り"));
    }

protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        const bool sideBySide = orientation() == Qt::Horizontal;
        const int position = sideBySide ? x() : y();
        const int back = sideBySide ? Qt::Key_Left : Qt::Key_Up;
        const int on = sideBySide ? Qt::Key_Right : Qt::Key_Down;
        if (event->key() == back) {
            moveSplitter(position - keyStep);
        } else if (event->key() == on) {
            moveSplitter(position + keyStep);
        } else if (event->key() == Qt::Key_Home) {
            moveSplitter(0);
        } else if (event->key() == Qt::Key_End) {
            moveSplitter(sideBySide ? splitter()->width() : splitter()->height());
        } else {
            QSplitterHandle::keyPressEvent(event);
        }
    }

    void paintEvent(QPaintEvent* event) override
    {
        QSplitterHandle::paintEvent(event);
        if (!hasFocus()) return;
        QStylePainter painter(this);
        QStyleOptionFocusRect focus;
        focus.initFrom(this);
        painter.drawPrimitive(QStyle::PE_FrameFocusRect, focus);
    }
};
} // namespace

GaluDSplitter::GaluDSplitter(Qt::Orientation panes, QWidget* parent) : QSplitter(panes, parent)
{
    setChildrenCollapsible(false);
    setHandleWidth(handleSize);
}

void GaluDSplitter::SetPane(int place, QWidget* pane)
{
    if (place >= count()) {
        addWidget(pane);
        return;
    }
    if (widget(place) == pane) return;
    pane->setMinimumSize(widget(place)->minimumSize());
    QWidget* const before = replaceWidget(place, pane);
    before->setParent(parentWidget());
}

void GaluDSplitter::ShowPane(int place, bool show)
{
    widget(place)->setVisible(show);
}

void GaluDSplitter::SetMinimums(int first, int second)
{
    const bool sideBySide = orientation() == Qt::Horizontal;
    const int minimums[] = {first, second};
    for (int place = 0; place < count(); ++place) {
        if (sideBySide) {
            widget(place)->setMinimumWidth(minimums[place]);
        } else {
            widget(place)->setMinimumHeight(minimums[place]);
        }
    }
}

int GaluDSplitter::GetPosition() const
{
    return sizes().value(0);
}

void GaluDSplitter::SetPosition(int position)
{
    const bool fromEnd = position < 0;
    setStretchFactor(0, fromEnd ? 1 : 0);
    setStretchFactor(1, fromEnd ? 0 : 1);
    const int wanted = std::abs(position);
    const int rest = std::max(1, Along(size()) - wanted - handleWidth());
    setSizes(fromEnd ? QList{rest, wanted} : QList{wanted, rest});
}

QSplitterHandle* GaluDSplitter::createHandle()
{
    return new Handle(orientation(), this);
}

int GaluDSplitter::Along(const QSize& size) const
{
    return orientation() == Qt::Horizontal ? size.width() : size.height();
}
