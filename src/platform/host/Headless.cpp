#include "platform/host/Headless.h"

#include <QGuiApplication>

void EnsureGui()
{
    if (QCoreApplication::instance() != nullptr) return;
    EnsureQuiet();
    static char name[] = "tovi";
    static char platform[] = "-platform";
    static char offscreen[] = "offscreen";
    static char* arguments[] = {name, platform, offscreen, nullptr};
    static int count = 3;
    // Never deleted: by the time the program ends, what it stands on may be gone already.
    static const QGuiApplication* const application = new QGuiApplication(count, arguments);
    Q_UNUSED(application);
}

void EnsureQuiet()
{
    if (QCoreApplication::instance() != nullptr) return;
    static const QtMessageHandler before =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    Q_UNUSED(before);
}
