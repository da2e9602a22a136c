#include "hosts/cli/Commands.h"
#include "hosts/cli/IntakeArguments.h"

#include "intake/IntakeCheck.h"
#include "items/ToviItemDef.h"
#include "platform/files/MibFile.h"
#include "platform/text/TerminalText.h"

#include <algorithm>
#include <iostream>
#include <map>

namespace
{
struct Arguments
{
    DeliveryArguments delivery;
    std::string owner = familyIsGuessed;
    std::string rules;
    std::string format = "json";
    bool quick = false;
};

constexpr int photosPerLine = 8;

struct GradeWord
{
    IntakeGrade grade;
    const char* word;
};

constexpr GradeWord gradeWords[] = {
    {IntakeGrade::Error, "エラー"}, {IntakeGrade::Warning, "警告"}, {IntakeGrade::Hint, "ヒント"}};

Json ToJson(const IntakeDelivery& delivery, const CString& owner, const IntakeReport& report)
{
    Json findings = Json::Array();
    for (const IntakeFinding& finding : report.findings) {
        findings.Add(Json::Object({{"rule", finding.rule},
                                   {"grade", NameOf(finding.grade)},
                                   {"photos", NumbersOf(finding.photos)},
                                   {"file", finding.file},
                                   {"item", finding.item},
                                   {"text", finding.text},
                                   {"action", finding.action}}));
    }
    Json notRun = Json::Array();
    for (const RuleNotRun& rule : report.notRun) {
        notRun.Add(Json::Object({{"rule", rule.rule}, {"why", rule.why}}));
    }
    return Json::Object({{"edition", delivery.def.GetSection()},
                         {"standard", delivery.standard},
                         {"owner", owner},
                         {"findings", findings},
                         {"notRun", notRun}});
}

CString PhotosText(const std::vector<int>& photos, std::size_t most)
{
    CString text;
    for (std::size_t i = 0; i < std::min(photos.size(), most); ++i) {
        text += (i == 0 ? "" : " ") + std::to_string(photos[i]);
    }
    return text;
}

CString ToCsv(const IntakeReport& report)
{
    CString text = csvMark + CsvLine({"rule", "grade", "photos", "file", "item", "text", "action"});
    for (const IntakeFinding& each : report.findings) {
        text += CsvLine({each.rule, NameOf(each.grade), PhotosText(each.photos, each.photos.size()),
                         each.file, each.item, each.text, each.action});
    }
    for (const RuleNotRun& rule : report.notRun) {
        text += CsvLine({rule.rule, "not-run", "", "", "", rule.why, ""});
    }
    return text;
}

CString ToLine(const IntakeFinding& finding)
{
    CString line = finding.text;
    if (!finding.item.empty()) line += "　" + finding.item;
    if (!finding.file.empty()) line += "　" + finding.file;
    if (!finding.photos.empty()) {
        line += "　写真 " + PhotosText(finding.photos, photosPerLine);
        if (finding.photos.size() > photosPerLine) {
            line += Format(" ほか（全%d枚）", static_cast<int>(finding.photos.size()));
        }
    }
    return line + "　［" + finding.rule + "］" + (finding.action.empty() ? "" : "→ ") +
           finding.action;
}

/// The findings of one grade, of each rule those that a reader takes in.
CString LinesOf(const IntakeReport& report, IntakeGrade grade)
{
    constexpr int mostOfARule = 10;
    CString text;
    std::map<CString, int> counts;
    for (const IntakeFinding& finding : report.findings) {
        if (finding.grade != grade || ++counts[finding.rule] > mostOfARule) continue;
        text += "  " + HarmlessLine(ToLine(finding)) + "\n";
    }
    for (const auto& [rule, count] : counts) {
        if (count > mostOfARule)
            text += Format("  ほか%d件　［%s］\n", count - mostOfARule, rule.c_str());
    }
    return text;
}

CString ToPlainText(const IntakeReport& report)
{
    CString text;
    for (const GradeWord& row : gradeWords) {
        text +=
            Format("%s %d件\n", row.word, report.CountOf(row.grade)) + LinesOf(report, row.grade);
    }
    text += Format("調べられなかった規則 %d件\n", static_cast<int>(report.notRun.size()));
    for (const RuleNotRun& rule : report.notRun) {
        text += "  " + HarmlessLine(rule.rule + "　" + rule.why) + "\n";
    }
    return text;
}

/// Reads the user's table into \p rules, if there is one. False, with a sentence on standard error,
/// when the file can't be read.
bool ReadRules(const CString& path, UserRules& rules)
{
    if (path.empty()) return true;
    std::optional<UserRules> read = ReadUserRules(MibAbsolutePath(path));
    if (!read) {
        Complain(path + " を規則の表として読めません。ファイルの場所と、文字コードが UTF-8 か "
                        "Shift_JIS であることを確かめてください。");
        return false;
    }
    rules = std::move(*read);
    for (const RuleNotRun& mistake : rules.mistakes) {
        Complain(mistake.rule + "　" + mistake.why + "。この行は使わずに検査します。");
    }
    return true;
}

int Run(const Arguments& arguments)
{
    UserRules rules;
    if (!ReadRules(arguments.rules, rules)) return ExitFailed;
    const OpenedDelivery opened = OpenDelivery(arguments.delivery);
    if (!opened.IsLoaded()) return ExitFailed;
    const PhotoXMLType owner = FamilyWithKey(arguments.owner).value_or(opened.family);
    IntakeDelivery delivery(opened, OwnerOf(owner), Today());
    const bool isDone = arguments.quick || UnderProgress("ファイルの検査", [&](const auto& tell) {
                            ExamineFiles(delivery, tell);
                        });
    if (!isDone) return ExitInterrupted;
    const IntakeReport report = CheckIntake(delivery, rules);
    const CString ownerKey = deliveryFamilies[static_cast<std::size_t>(owner)].key;
    if (arguments.format == "csv") {
        std::cout << ToCsv(report);
    } else if (arguments.format == "text") {
        std::cout << ToPlainText(report);
    } else {
        std::cout << ToText(ToJson(delivery, ownerKey, report)) << '\n';
    }
    return report.CountOf(IntakeGrade::Error) > 0 ? ExitFoundErrors : ExitDone;
}

std::vector<std::string> OwnerWords()
{
    std::vector<std::string> words = {familyIsGuessed};
    for (const DeliveryFamily& family : deliveryFamilies) words.emplace_back(family.key);
    return words;
}
} // namespace

Command CheckCommand()
{
    const auto arguments = std::make_shared<Arguments>();
    return {
        .name = "check",
        .help = "受け取った納品データを要領の規則で検査する",
        .options = Joined(
            {DeliveryOptions(arguments->delivery),
             {{.name = "--owner",
               .help = "どの発注者の規則で調べるか（既定は要領の系統と同じ）: " + FamilyKeys(false),
               .target = &arguments->owner,
               .valueName = "NAME",
               .accepted = OneOf{OwnerWords()}},
              {.name = "--rules",
               .help = "自分の規則の表。「規則,error|warning|hint|off」の行は組み込みの規則の重さを"
                       "変え、「名前,重さ,項目,条件,値,文」の行は規則を加える。条件は required、"
                       "longest、one-of、like、without",
               .target = &arguments->rules,
               .valueName = "FILE"},
              {.name = "--format",
               .help = "出力の形（既定は json）",
               .target = &arguments->format,
               .valueName = "json|csv|text",
               .accepted = OneOf{{"json", "csv", "text"}}},
              {"--quick", "ファイルの中身を読まない", &arguments->quick}}}),
        .footer = "出力: {\"edition\",\"standard\",\"owner\",\"findings\":[{\"rule\","
                  "\"grade\":\"error|warning|hint\",\"photos\":[番号],\"file\",\"item\",\"text\","
                  "\"action\"}],\"notRun\":[{\"rule\",\"why\"}]}\n"
                  "終了コード: 0 エラーなし、3 エラーあり、1・2・130 はほかのコマンドと同じ",
        .run = [arguments] { return Run(*arguments); }};
}
