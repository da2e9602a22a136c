#include "hosts/viewer/SlideShow.h"

#include "review/SlideMode.h"
#include "windows/page/ToviMpiPanel.h"
#include "windows/pictures/PhotoGround.h"

#include <QApplication>
#include <QDockWidget>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QStatusBar>
#include <QToolBar>

/// \p colors with light words on a dark ground.
static QPalette Dark(QPalette colors)
{
    colors.setColor(QPalette::Window, QColor(32, 32, 32));
    colors.setColor(QPalette::WindowText, QColor(230, 230, 230));
    return colors;
}

SlideShow::SlideShow(QMainWindow* mainWindow, ToviMpiPanel* photoPanel)
    : QObject(mainWindow), frame(mainWindow), panel(photoPanel), bar(new QWidget),
      number(new QLabel)
{
    MakeBar();
    connect(panel, &ToviMpiPanel::SelectionChanged, this, &SlideShow::ShowNumber);
}

void SlideShow::MakeBar()
{
    bar->setObjectName(QStringLiteral("slideBar"));
    bar->setPalette(Dark(bar->palette()));
    bar->setAutoFillBackground(true);
    bar->hide();
    number->setAlignment(Qt::AlignCenter);
    number->setMinimumWidth(
        number->fontMetrics().horizontalAdvance(QStringLiteral("000000 / 000000")));
    auto* const row = new QHBoxLayout(bar);
    row->setContentsMargins(8, 4, 8, 4);
    const auto add = [this, row](const char* text, auto operation) {
        auto* const button = new QPushButton(QString::fromUtf8(text));
        // The keys stay with the photograph.
        button->setFocusPolicy(Qt::NoFocus);
        connect(button, &QPushButton::clicked, this, operation);
        row->addWidget(button);
    };
    row->addStretch();
    add("◀ 前", [this] { Step(-1); });
    row->addWidget(number);
    add("次 ▶", [this] { Step(1); });
    row->addStretch();
    add("スライドモードを終了", [this] { End(); });
}

void SlideShow::ShowNumber()
{
    const ToviData* const data = panel->GetData();
    if (!isOn || data == nullptr) return;
    number->setText(QStringLiteral("%1 / %2")
                        .arg(data->GetSelectCurIndex() + 1)
                        .arg(data->GetCurrentPhotoCount()));
}

void SlideShow::Begin()
{
    if (isOn) return;
    isOn = true;
    SetSlideMode(true);
    PhotoGround::Get().SetSlideMode(true);
    before = frame->windowState();
    QList<QWidget*> around = {frame->menuBar(), frame->statusBar()};
    for (QToolBar* tools : frame->findChildren<QToolBar*>(QString(), Qt::FindDirectChildrenOnly))
        around << tools;
    for (QDockWidget* dock : frame->findChildren<QDockWidget*>()) around << dock;
    for (QWidget* part :
         frame->centralWidget()->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (part != bar && !part->isAncestorOf(panel)) around << part;
    }
    for (QWidget* widget : around) {
        if (widget->isHidden()) continue;
        hidden << widget;
        widget->hide();
    }
    ToviPhotoCtrlVisualSetting single = panel->GetVisualSetting();
    single.SetDivType(ToviPhotoCtrlVisualSetting::DivideOne);
    single.SetImageTextArrange(ToviPhotoCtrlVisualSetting::TextHidden);
    panel->SetVisualSetting(single, true);
    ShowNumber();
    bar->show();
    frame->showFullScreen();
    panel->setFocus();
    qApp->installEventFilter(this);
}

void SlideShow::End()
{
    if (!isOn) return;
    isOn = false;
    SetSlideMode(false);
    PhotoGround::Get().SetSlideMode(false);
    qApp->removeEventFilter(this);
    for (const QPointer<QWidget>& widget : hidden) {
        if (widget) widget->show();
    }
    hidden.clear();
    bar->hide();
    frame->setWindowState(before);
    if (const ToviData* data = panel->GetData()) {
        panel->SetVisualSetting(data->GetVisualSetting(), true);
    }
}

bool SlideShow::eventFilter(QObject* watched, QEvent* event)
{
    const bool isKey =
        event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
    const bool isOurs = isKey && QApplication::activeModalWidget() == nullptr &&
                        QApplication::activePopupWidget() == nullptr && watched->isWidgetType();
    if (!isOurs) return QObject::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (event->type() == QEvent::KeyPress)
        return OnKey(key) || QObject::eventFilter(watched, event);
    // Keeps the keys of the mode from being taken for shortcuts.
    if (key == Qt::Key_PageDown || key == Qt::Key_PageUp) event->accept();
    return false;
}

bool SlideShow::OnKey(int key)
{
    switch (key) {
    case Qt::Key_Escape:
        End();
        return true;
    case Qt::Key_Right:
    case Qt::Key_Down:
    case Qt::Key_PageDown:
    case Qt::Key_Space:
        Step(1);
        return true;
    case Qt::Key_Left:
    case Qt::Key_Up:
    case Qt::Key_PageUp:
    case Qt::Key_Backspace:
        Step(-1);
        return true;
    default:
        return false;
    }
}

void SlideShow::Step(int by)
{
    const ToviData* data = panel->GetData();
    if (data == nullptr) return;
    const int target = data->GetSelectCurIndex() + by;
    if (target < 0 || target >= data->GetCurrentPhotoCount()) return;
    if (by > 0) {
        panel->OperateNextPhoto();
    } else {
        panel->OperatePrevPhoto();
    }
}
