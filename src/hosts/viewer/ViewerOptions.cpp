#include "hosts/viewer/ViewerOptions.h"

#include "hosts/viewer/ViewerOptionRows.h"
#include "platform/text/QtText.h"
#include "platform/text/TerminalText.h"

#include <QCommandLineParser>

#include <algorithm>
#include <iostream>

namespace
{
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

bool IsArgument(const ViewerOptionRow& row)
{
    return *row.name != '-';
}

CString Usage()
{
    CString lines[2];
    for (const ViewerOptionRow& row : ViewerOptionRows()) {
        const CString letter = *row.letter != '\0' ? CString(row.letter) + ", " : CString();
        CString line = "  " + letter + row.name + " " + row.value;
        line.resize(std::max<std::size_t>(line.size(), 19), ' ');
        lines[IsArgument(row) ? 0 : 1] += line + row.help + "\n";
    }
    return CString("使い方: tovi-viewer [オプション] [DELIVERY]\n") + viewerHelp + "\n\n引数:\n" +
           lines[0] + "\nオプション:\n" + lines[1];
}

void Describe(QCommandLineParser& parser)
{
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    for (const ViewerOptionRow& row : ViewerOptionRows()) {
        if (IsArgument(row)) continue;
        QStringList names(Named(row.name).mid(2));
        if (*row.letter != '\0') names << Named(row.letter).mid(1);
        parser.addOption({names, {}, Named(row.value)});
    }
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
    const bool isFamily =
        !parser.isSet(Named("family")) || IsFamily(FromQtText(parser.value(Named("family"))));
    if (isFamily) return {};
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
        std::cout << (parser.isSet(Named("help")) ? Usage() : "tovi-viewer " TOVI_VERSION "\n");
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
