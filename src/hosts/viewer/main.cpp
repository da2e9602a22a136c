#include "hosts/viewer/MainFrame.h"
#include "hosts/viewer/ViewerOptions.h"
#include "platform/controls/GaluFont.h"
#include "platform/host/HostProcess.h"
#include "platform/host/HostServices.h"
#include "platform/host/MachineLacks.h"
#include "platform/store/FileProfileStore.h"
#include "platform/text/QtText.h"
#include "windows/dialogs/QtUserInterface.h"
#include "windows/loader/FileLoader.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QStatusBar>
#include <QTranslator>

#include <cstdlib>
#include <iostream>

namespace
{
constexpr int outputFailed = 1;

/// What the command line says and what it asks for without a window needs no display.
std::optional<ViewerOptions> ReadCommandLine(int argc, char** argv, int& status)
{
    const QCoreApplication application(argc, argv);
    return ReadOptions(QCoreApplication::arguments(), status);
}

/// The exit status of what ended with \p status, after a look whether its output has arrived.
int WithOutputArrived(int status)
{
    if (StandardOutputHasArrived()) return status;
    std::cerr << outputLost << std::endl;
    return outputFailed;
}

int Run(const ViewerOptions& options)
{
    QtUserInterface user;
    FileProfileStore profile(options.profile.empty() ? DefaultProfilePath() : options.profile);
    InstallHostServices({&user, &profile, "Tovi", RunningProgramPath()});
    MainFrame frame;
    user.SetMainWindow(&frame);
    user.SetProgressDisplay([&frame](const CString& text) {
        frame.statusBar()->showMessage(QtText(text));
        frame.statusBar()->repaint();
    });
    const CStringArray lacks = WhatMachineLacks();
    for (const CString& sentence : lacks) std::cerr << sentence << std::endl;
    frame.TellLacks(lacks);
    frame.TellKeys();
    frame.show();
    if (options.delivery.empty()) {
        frame.OpenLast();
    } else {
        frame.OpenDelivery(options.delivery, options.family, options.record);
    }
    return QApplication::exec();
}

/// Ends the program with \p status without waiting for a share or disc that doesn't answer. Nobody
/// may take apart what a thread that waits there still stands on.
int WithoutWaitingForFiles(int status)
{
    if (!FileLoader::Ours().Stop(std::chrono::seconds(1))) {
        std::cout.flush();
        std::_Exit(status);
    }
    return status;
}
} // namespace

int main(int argc, char** argv)
{
    PrepareHostProcess();
    int status = 0;
    const std::optional<ViewerOptions> options = ReadCommandLine(argc, argv, status);
    if (!options) return WithOutputArrived(status);
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("tovi-viewer"));
    QApplication::setApplicationVersion(QStringLiteral(TOVI_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("jp.tovi.viewer"));
    QApplication::setFont(GaluFont::MsPGothic9pt());
    // Days and sizes in Qt's own dialogs are told in the language of everything else.
    QLocale::setDefault(QLocale(QLocale::Japanese, QLocale::Japan));
    QTranslator translator;
    if (translator.load(QStringLiteral("qtbase_ja"),
                        QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        QApplication::installTranslator(&translator);
    }
    return WithoutWaitingForFiles(Run(*options));
}
