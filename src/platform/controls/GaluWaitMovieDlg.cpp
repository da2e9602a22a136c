#include "platform/controls/GaluWaitMovieDlg.h"

#include "platform/controls/WaitMovie.h"
#include "platform/text/QtText.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>
#include <QWindow>

#include <exception>
#include <thread>

namespace
{
constexpr int smallestWidth = 280;
/// The longest wait for the system to bring up the window, in milliseconds.
constexpr int longestWait = 200;
constexpr Qt::WindowFlags flags = Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint;
} // namespace

GaluWaitMovieDlg::GaluWaitMovieDlg()
    : movie(new WaitMovie(this)), message(new QLabel(this)), bar(new QProgressBar(this)),
      cancelButton(new QPushButton(QStringLiteral("キャンセル"), this))
{
    setWindowFlags(flags);
    setWindowModality(Qt::ApplicationModal);
    setMinimumWidth(smallestWidth);
    message->setAlignment(Qt::AlignCenter);
    message->setTextFormat(Qt::PlainText);
    bar->hide();
    connect(cancelButton, &QPushButton::clicked, this, &WenDialog::reject);
    appearance.setSingleShot(true);
    appearance.setInterval(delay);
    connect(&appearance, &QTimer::timeout, this, &GaluWaitMovieDlg::Appear);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(movie);
    layout->addWidget(message);
    layout->addWidget(bar);
    layout->addWidget(cancelButton, 0, Qt::AlignHCenter);
}

void GaluWaitMovieDlg::Create(QWidget* parent)
{
    setParent(parent != nullptr ? parent->window() : nullptr, flags);
}

void GaluWaitMovieDlg::Animation(int number)
{
    movie->SetKind(number);
}

void GaluWaitMovieDlg::SetEnableCancel(bool enable)
{
    cancelButton->setVisible(enable);
}

void GaluWaitMovieDlg::Message(const CString& text, int pos)
{
    message->setText(QtText(text));
    setAccessibleName(message->text());
    bar->setVisible(pos >= 0);
    bar->setValue(pos);
    if (isVisible()) {
        Repaint();
    } else if (started.isValid() && started.elapsed() >= delay.count()) {
        Appear();
    }
}

bool GaluWaitMovieDlg::GetCancel()
{
    return cancelled.exchange(false);
}

void GaluWaitMovieDlg::Start()
{
    cancelled = false;
    started.start();
    appearance.start();
}

void GaluWaitMovieDlg::End()
{
    appearance.stop();
    started.invalidate();
    hide();
}

/// Brings the window up, painted, before it returns.
void GaluWaitMovieDlg::Appear()
{
    appearance.stop();
    if (isVisible()) return;
    show();
    QElapsedTimer waited;
    waited.start();
    do {
        Repaint();
    } while (!windowHandle()->isExposed() && waited.elapsed() < longestWait);
}

void GaluWaitMovieDlg::Run(const std::function<void()>& work)
{
    Start();
    std::exception_ptr failure;
    bool done = false;
    QEventLoop loop;
    QTimer::singleShot(delay, &loop, &QEventLoop::quit);
    std::thread worker([&] {
        try {
            work();
        } catch (...) {
            failure = std::current_exception();
        }
        QMetaObject::invokeMethod(
            &loop,
            [&] {
                done = true;
                loop.quit();
            },
            Qt::QueuedConnection);
    });
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    if (!done) loop.exec();
    worker.join();
    End();
    if (failure) std::rethrow_exception(failure);
}

void GaluWaitMovieDlg::OnOK() {}

void GaluWaitMovieDlg::OnCancel()
{
    if (!cancelButton->isHidden()) cancelled = true;
}

void GaluWaitMovieDlg::Repaint()
{
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    repaint();
}
