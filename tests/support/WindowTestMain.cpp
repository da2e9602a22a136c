#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <QApplication>

namespace
{
/// A warning of Qt's says that a control misuses it. What its offscreen platform can't do is no
/// fault of theirs.
void FailOnWarning(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    const bool offscreen = text.startsWith(u"This plugin does not support");
    if (type != QtDebugMsg && type != QtInfoMsg && !offscreen) ADD_FAILURE() << text.toStdString();
}
} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    // What is opened is kept in mind, but not in the home of whoever runs the tests.
    const TempFolder state;
    qputenv("XDG_STATE_HOME", state.Path().c_str());
    qInstallMessageHandler(FailOnWarning);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
