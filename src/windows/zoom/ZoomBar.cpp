#include "windows/zoom/ZoomBar.h"

#include "platform/controls/LumImgWnd.h"
#include "windows/zoom/ZoomView.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>

ZoomBar::ZoomBar(ZoomView* theView, QWidget* parent)
    : QWidget(parent), view(theView), zoomLabel(new QLabel),
      keepBox(new QCheckBox(QStringLiteral("表示位置を保つ(&K)"))), sizeLabel(new QLabel)
{
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(4);
    LumImgWnd* const window = &view->Window();
    const auto add = [&](const char* text, const char* tip, auto operation) {
        QToolButton* const button = AddButton(row, QString::fromUtf8(text), QString::fromUtf8(tip));
        connect(button, &QToolButton::clicked, window, operation);
    };
    add("全体", "写真全体を表示（/）", &LumImgWnd::ShowFitted);
    add("等倍", "画素を等倍で表示（*）", &LumImgWnd::ShowFullSize);
    add("－", "縮小（-）", [window] { window->ZoomBy(-1); });
    add("＋", "拡大（+）", [window] { window->ZoomBy(1); });
    zoomLabel->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("0000.0 %")));
    zoomLabel->setAccessibleName(QStringLiteral("表示倍率"));
    row->addWidget(zoomLabel);
    keepBox->setToolTip(QStringLiteral("次の写真も同じ倍率と位置で表示"));
    row->addWidget(keepBox);
    row->addStretch(1);
    // The first to give way where there is little room.
    sizeLabel->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    sizeLabel->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    sizeLabel->setAccessibleName(QStringLiteral("写真の大きさ"));
    row->addWidget(sizeLabel, 100);
    connect(keepBox, &QCheckBox::toggled, this, &ZoomBar::KeepsViewChanged);
    connect(view, &ZoomView::Changed, this, &ZoomBar::Refresh);
    Refresh();
}

QToolButton* ZoomBar::AddButton(QHBoxLayout* row, const QString& text, const QString& tip)
{
    auto* const button = new QToolButton;
    button->setText(text);
    button->setToolTip(tip);
    button->setFocusPolicy(Qt::TabFocus);
    button->setAutoRaise(true);
    row->addWidget(button);
    buttons << button;
    return button;
}

void ZoomBar::SetKeepsView(bool keeps)
{
    const QSignalBlocker quiet(keepBox);
    keepBox->setChecked(keeps);
}

void ZoomBar::Refresh()
{
    const bool isShown = view->HasPicture();
    const double percent = view->Window().View().Zoom() * 100;
    zoomLabel->setText(isShown ? QStringLiteral("%1 %").arg(percent, 0, 'f', percent < 10 ? 1 : 0)
                               : QString());
    QString text;
    if (view->IsLoading()) {
        text = QStringLiteral("読み込み中...");
    } else if (isShown) {
        const QSize size = view->PictureSize();
        text = QStringLiteral("%1 × %2 画素").arg(size.width()).arg(size.height());
        if (view->IsReduced()) text += QStringLiteral("（拡大した部分を読み込みます）");
    }
    sizeLabel->setText(text);
    sizeLabel->setToolTip(text);
}
