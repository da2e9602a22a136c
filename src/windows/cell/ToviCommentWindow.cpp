#include "windows/cell/ToviCommentWindow.h"

#include "platform/controls/GaluFont.h"
#include "platform/controls/ToolTipText.h"
#include "platform/controls/WindowId.h"
#include "platform/text/QtText.h"
#include "review/SlideMode.h"
#include "windows/pictures/FitText.h"
#include "windows/pictures/Pictures.h"

#include <QMouseEvent>
#include <QPainter>

static constexpr int marginPicture = 817;
static constexpr QColor frameColor(176, 182, 189);

namespace
{
CString OneLine(const CString& text)
{
    return ReplaceAll(text, "\n", " ");
}
} // namespace

ToviCommentWindow::ToviCommentWindow()
{
    QPalette colors = palette();
    colors.setColor(QPalette::Window, Qt::white);
    colors.setColor(QPalette::WindowText, frameColor);
    colors.setColor(QPalette::Text, Qt::black);
    setPalette(colors);
    // In a list they would be those of the list.
    setBackgroundRole(QPalette::Window);
    setForegroundRole(QPalette::WindowText);
    setAutoFillBackground(true);
    setFrameStyle(QFrame::Box | QFrame::Plain);
    setFont(GaluFont::MsPGothic9pt());
    setAccessibleName(QStringLiteral("コメント"));
    hide();
}

void ToviCommentWindow::Create(const CString& text, const QRect& place, QWidget* parent, int id,
                               int position)
{
    setParent(parent);
    SetWindowId(this, id);
    setGeometry(place);
    photoPosition = position;
    SetComment(text);
    raise();
    ShowIfAny(true);
}

void ToviCommentWindow::SetComment(const CString& text)
{
    comment = text;
    setToolTip(ToolTipText(text));
    setAccessibleDescription(QtText(text));
    Fit();
}

void ToviCommentWindow::ShowIfAny(bool visible)
{
    setVisible(visible && !comment.empty());
}

void ToviCommentWindow::Fit()
{
    const QFontMetrics metrics = fontMetrics();
    shownText = FitText(OneLine(comment), contentsRect().width(), [&metrics](const CString& text) {
        return metrics.horizontalAdvance(QtText(text));
    });
    update();
}

void ToviCommentWindow::resizeEvent(QResizeEvent* event)
{
    QFrame::resizeEvent(event);
    Fit();
}

/// The focus stays in the cell. Left to itself, Qt would move it on to another window.
void ToviCommentWindow::hideEvent(QHideEvent* event)
{
    if (window()->focusWidget() == this) parentWidget()->setFocus();
    QFrame::hideEvent(event);
}

void ToviCommentWindow::paintEvent(QPaintEvent* event)
{
    QFrame::paintEvent(event);
    QPainter painter(this);
    const QRect area = contentsRect();
    painter.setClipRect(area);
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(area, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     QtText(shownText));
    const PictureName margin = PicturesOf(marginPicture).front();
    const QSize size = PictureSize(margin);
    const int top = area.top() + (area.height() - size.height()) / 2;
    painter.drawPixmap(area.left(), top, PicturePixmap(margin, size, devicePixelRatioF()));
}

void ToviCommentWindow::mousePressEvent(QMouseEvent* event)
{
    event->setAccepted(event->button() == Qt::LeftButton);
    if (event->isAccepted()) emit Clicked(this);
}

void ToviCommentWindow::mouseDoubleClickEvent(QMouseEvent* event)
{
    event->setAccepted(event->button() == Qt::LeftButton);
    if (!event->isAccepted() || RefuseInSlideMode(SlideModeRefusal::EditComment)) return;
    emit DoubleClicked(this);
}
