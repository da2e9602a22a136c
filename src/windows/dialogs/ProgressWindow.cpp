#include "windows/dialogs/ProgressWindow.h"

#include "platform/text/QtText.h"

#include <QApplication>
#include <QCloseEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

ProgressWindow::ProgressWindow(QWidget* owner)
    : QWidget(owner, Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint),
      message(new QLabel), bar(new QProgressBar), percent(new QLabel(QStringLiteral("100%"))),
      cancelButton(new QPushButton(QStringLiteral("キャンセル")))
{
    setAttribute(Qt::WA_ShowWithoutActivating);
    bar->setTextVisible(false);
    bar->setMinimumWidth(320);
    bar->setAccessibleName(QStringLiteral("進み具合"));
    percent->setMinimumWidth(percent->sizeHint().width());
    percent->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    message->setTextFormat(Qt::PlainText);
    auto* layout = new QGridLayout(this);
    layout->addWidget(message, 0, 0, 1, 2);
    layout->addWidget(bar, 1, 0);
    layout->addWidget(percent, 1, 1);
    layout->addWidget(cancelButton, 2, 0, 1, 2, Qt::AlignHCenter);
    connect(cancelButton, &QPushButton::clicked, this, [this] { cancelled = true; });
}

void ProgressWindow::closeEvent(QCloseEvent* event)
{
    event->ignore();
    if (cancelButton->isEnabled()) cancelled = true;
}

ProgressWindowPort::ProgressWindowPort(QWidget* windowOwner)
    : owner(windowOwner), window(new ProgressWindow(windowOwner))
{
    // The owner may keep the keyboard, though it is disabled.
    qApp->installEventFilter(this);
}

ProgressWindowPort::~ProgressWindowPort()
{
    delete window;
    if (owner && closeRequested) QMetaObject::invokeMethod(owner, "close", Qt::QueuedConnection);
}

bool ProgressWindowPort::eventFilter(QObject* watched, QEvent* event)
{
    if (IsCancelKey(*event)) {
        window->cancelled = true;
        return true;
    }
    const bool isClose = watched == owner && event->type() == QEvent::Close;
    if (!isClose) return QObject::eventFilter(watched, event);
    closeRequested = true;
    event->ignore();
    return true;
}

/// Esc, wherever it is pressed, unless a question is open.
bool ProgressWindowPort::IsCancelKey(const QEvent& event) const
{
    return event.type() == QEvent::KeyPress && window && window->isVisible() &&
           window->cancelButton->isVisible() && QApplication::activeModalWidget() == nullptr &&
           QApplication::activePopupWidget() == nullptr &&
           static_cast<const QKeyEvent&>(event).key() == Qt::Key_Escape;
}

void ProgressWindowPort::EnableOwner(bool enable)
{
    if (!owner) return;
    // A window that is disabled loses its focus for good.
    if (!enable) focus = owner->focusWidget();
    owner->setEnabled(enable);
    // The owner's state reaches its child windows; this one must stay usable.
    if (window) window->setEnabled(true);
    if (enable && focus) focus->setFocus(Qt::ActiveWindowFocusReason);
}

void ProgressWindowPort::SetCancelEnabled(bool enable)
{
    window->cancelButton->setEnabled(enable);
    window->cancelButton->setVisible(enable);
}

void ProgressWindowPort::SetCaption(const CString& text)
{
    window->setWindowTitle(QtText(text));
}

void ProgressWindowPort::SetRange(int lower, int upper)
{
    // A range without extent would show as a bar that runs for ever.
    window->bar->setRange(lower, upper > lower ? upper : lower + 1);
}

void ProgressWindowPort::SetBar(int pos)
{
    window->bar->setValue(pos);
}

void ProgressWindowPort::SetMessage(const CString& text)
{
    window->message->setText(QtText(text));
}

void ProgressWindowPort::SetPercent(const CString& text)
{
    window->percent->setText(QtText(text));
}

void ProgressWindowPort::Show()
{
    window->show();
}

bool ProgressWindowPort::Pump()
{
    QCoreApplication::processEvents();
    return window && std::exchange(window->cancelled, false);
}
