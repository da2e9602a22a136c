#include "platform/controls/ScrolledPage.h"

#include <QScrollBar>

ScrolledPage::ScrolledPage(QWidget* page)
{
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setWidget(page);
}

QSize ScrolledPage::sizeHint() const
{
    // With room for the upright bar, which would call for the other one, too.
    return widget()->sizeHint() + QSize(verticalScrollBar()->sizeHint().width(), 0);
}
