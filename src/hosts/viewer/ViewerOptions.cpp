#include "hosts/viewer/ViewerOptions.h"

#include "kinds/DeliveryFamilies.h"
#include "platform/text/QtText.h"
#include "platform/text/TerminalText.h"

#include <QCommandLineParser>

#include <iostream>

namespace
{
constexpr const char* usage =
    "使い方: tovi-viewer [オプション] [DELIVERY]\n"
    "工事写真の電子納品データを検査する。納品データには書き込まない。\n"
    "\n"
    "引数:\n"
    "  DELIVERY         PHOTO.XML か INDEX_*.XML、またはそのあるフォルダ\n"
    "\n"
    "オプション:\n"
    "  -h, --help       この説明を表示する\n"
    "  -v, --version    名前と版を表示する\n"
    "  --family NAME    要領の系統: %s\n"
    "  --record FILE    検査状況の記録ファイル\n"
    "  --profile FILE   設定ファイル\n";

/// What the window system's side of Qt takes off the command line later, each with a value.
constexpr const char* windowOptions[] = {
    "platform",    "platformpluginpath", "platformtheme",   "plugin",
    "style",       "stylesheet",         "display",         "geometry",
    "qwindowicon", "qwindowtitle",       "qwindowgeometry", "session",
    "fontengine"};

QString Named(const char* name)
{
    return QString::fromLatin1(name);
}

void Describe(QCommandLineParser& parser)
{
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    parser.addOption(QCommandLineOption(QStringList{Named("h"), Named("help")}));
    parser.addOption(QCommandLineOption(QStringList{Named("v"), Named("version")}));
    parser.addOption({Named("family"), {}, Named("NAME"), Named(familyIsGuessed)});
    parser.addOption({Named("record"), {}, Named("FILE")});
    parser.addOption({Named("profile"), {}, Named("FILE")});
    for (const char* name : windowOptions) parser.addOption({Named(name), {}, Named("VALUE")});
    parser.addOption(QCommandLineOption(Named("reverse")));
}

bool IsFamily(const CString& key)
{
    return key == familyIsGuessed || FamilyWithKey(key);
}

/// What is wrong with the command line in a sentence; empty when nothing is.
CString WhatIsWrong(const QCommandLineParser& parser, bool parsed)
{
    const QStringList unknown = parser.unknownOptionNames();
    if (!unknown.isEmpty()) return "オプション " + FromQtText(unknown.front()) + " はありません。";
    if (!parsed) return "オプションの値がないか、余分です。";
    if (parser.positionalArguments().size() > 1) return "フォルダは1つだけ指定してください。";
    if (IsFamily(FromQtText(parser.value(Named("family"))))) return {};
    return "--family は " + FamilyKeys(false) + " のどれかを指定してください。";
}
} // namespace

std::optional<ViewerOptions> ReadOptions(const QStringList& arguments, int& status)
{
    QCommandLineParser parser;
    Describe(parser);
    const bool parsed = parser.parse(arguments);
    const CString wrong = WhatIsWrong(parser, parsed);
    if (!wrong.empty()) {
        std::cerr << "使い方が正しくありません。" << HarmlessLine(wrong)
                  << "tovi-viewer --help で確かめてください。" << std::endl;
        status = wrongUsage;
        return std::nullopt;
    }
    if (parser.isSet(Named("help")) || parser.isSet(Named("version"))) {
        std::cout << (parser.isSet(Named("help")) ? Format(usage, FamilyKeys(true).c_str())
                                                  : "tovi-viewer " TOVI_VERSION "\n");
        return std::nullopt;
    }
    ViewerOptions options;
    options.family = FamilyWithKey(FromQtText(parser.value(Named("family"))));
    const QStringList folders = parser.positionalArguments();
    if (!folders.isEmpty()) options.delivery = FromQtText(folders.front());
    options.record = FromQtText(parser.value(Named("record")));
    options.profile = FromQtText(parser.value(Named("profile")));
    return options;
}
