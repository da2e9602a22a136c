#include "dialogs/QtUserInterface.h"
#include "hosts/viewer/MainFrame.h"
#include "platform/controls/GaluFont.h"
#include "platform/FileProfileStore.h"
#include "platform/HostProcess.h"
#include "platform/HostServices.h"
#include "platform/MachineLacks.h"
#include "platform/QtText.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QLibraryInfo>
#include <QStatusBar>
#include <QTranslator>

#include <iostream>

namespace
{
constexpr int wrongUsage = 2;

struct Options
{
    CString delivery;
    CString record;
    CString profile;
    std::optional<PhotoXMLType> family;
};

void Describe(QCommandLineParser& parser)
{
    parser.setApplicationDescription(
        QStringLiteral("工事写真の電子納品データを検査する。納品データには書き込まない。"));
    parser.addPositionalArgument(QStringLiteral("DELIVERY"),
                                 QStringLiteral("PHOTO.XML か INDEX_*.XML、またはそのあるフォルダ"),
                                 QStringLiteral("[DELIVERY]"));
    parser.addOptions(
        {{QStringLiteral("family"), QStringLiteral("要領の系統: auto、mlit、kowan、maff、nexco"),
          QStringLiteral("NAME"), QStringLiteral("auto")},
         {QStringLiteral("record"), QStringLiteral("検査状況の記録ファイル"),
          QStringLiteral("FILE")},
         {QStringLiteral("profile"), QStringLiteral("設定ファイル"), QStringLiteral("FILE")}});
    parser.addHelpOption();
    parser.addVersionOption();
}

/// Nothing when the command line is wrong, which is told on standard error.
std::optional<Options> ReadOptions(const QCommandLineParser& parser)
{
    Options options;
    const QStringList names = {QStringLiteral("auto"), QStringLiteral("mlit"),
                               QStringLiteral("kowan"), QStringLiteral("maff"),
                               QStringLiteral("nexco")};
    const auto family = names.indexOf(parser.value(QStringLiteral("family")));
    const QStringList arguments = parser.positionalArguments();
    if (family < 0 || arguments.size() > 1) {
        std::cerr << "使い方が正しくありません。tovi-viewer --help で確かめてください。"
                  << std::endl;
        return std::nullopt;
    }
    if (family > 0) options.family = static_cast<PhotoXMLType>(family - 1);
    if (!arguments.isEmpty()) options.delivery = FromQtText(arguments.front());
    options.record = FromQtText(parser.value(QStringLiteral("record")));
    options.profile = FromQtText(parser.value(QStringLiteral("profile")));
    return options;
}

int Run(const Options& options)
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
    frame.show();
    if (!options.delivery.empty() && frame.OpenDelivery(options.delivery, options.family) &&
        !options.record.empty()) {
        frame.OpenRecord(options.record);
    }
    return QApplication::exec();
}
} // namespace

int main(int argc, char** argv)
{
    PrepareHostProcess();
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("tovi-viewer"));
    QApplication::setApplicationVersion(QStringLiteral(TOVI_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("jp.tovi.Viewer"));
    QApplication::setFont(GaluFont::MsPGothic9pt());
    QTranslator translator;
    if (translator.load(QStringLiteral("qtbase_ja"),
                        QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        QApplication::installTranslator(&translator);
    }
    QCommandLineParser parser;
    Describe(parser);
    parser.process(application);
    const std::optional<Options> options = ReadOptions(parser);
    return options ? Run(*options) : wrongUsage;
}
