#include "intake/IntakeCheck.h"
#include "sample/SampleDamage.h"
#include "sample/SampleFaults.h"
#include "support/OpenedSample.h"

#include <gmock/gmock.h>

#include <set>

namespace
{
using testing::AllOf;
using testing::ElementsAre;
using testing::Field;
using testing::IsEmpty;

struct Checked
{
    IntakeReport report;
    std::set<CString> rules;
    std::vector<CString> errors;
};

Checked Check(const CString& folder, const UserRules& user = {})
{
    const TestHost services;
    NotingDocument host;
    const OpenedDelivery opened = OpenDelivery(host, folder, std::nullopt, "");
    Checked checked;
    EXPECT_TRUE(opened.IsLoaded()) << opened.problem;
    if (!opened.IsLoaded()) return checked;
    IntakeDelivery delivery(opened, OwnerOf(opened.family), *DayOf("2026-01-01"));
    ExamineFiles(delivery, [](int, int) { return true; });
    checked.report = CheckIntake(delivery, user);
    for (const IntakeFinding& finding : checked.report.findings) {
        checked.rules.insert(finding.rule);
        if (finding.grade == IntakeGrade::Error) checked.errors.push_back(finding.text);
    }
    return checked;
}

SampleOptions Plain(const CString& section)
{
    return {.section = section, .photos = 6, .drawings = 3, .plainPictures = true};
}

TEST(IntakeCheck, FindsEachPlantedFaultByItsRuleAlone)
{
    EXPECT_GE(SampleFaults().size(), 100U);
    std::set<CString> planted;
    for (const SampleFault& fault : SampleFaults()) {
        SCOPED_TRACE(fault.name);
        const TempFolder temp;
        const SampleFault* const faults[] = {&fault};
        WriteFaultySample(Plain("国交省-20"), faults, temp.Path("set"));
        const CString beside = temp.Path("set/DISK1");
        const bool isBeside = fault.rule == "disc-other-xml";
        EXPECT_THAT(Check(isBeside ? beside : temp.Path("set")).rules,
                    ElementsAre(CString(fault.rule)));
        planted.insert(CString(fault.rule));
    }
    for (const IntakeRule* rule : AllIntakeRules()) {
        EXPECT_TRUE(planted.contains(rule->id)) << rule->id << " is planted nowhere";
    }
}

TEST(IntakeCheck, LetsWhatIsAllowedPass)
{
    for (const SampleSchema& schema : SampleSchemas()) {
        SCOPED_TRACE(schema.section);
        const TempFolder temp;
        SampleOptions options = Plain(CString(schema.section));
        options.photos = 24;
        DeliveryBuilder(options).Write(temp.Path("as-they-come"));
        EXPECT_THAT(Check(temp.Path("as-they-come")).errors, IsEmpty());
        options.tidy = true;
        options.discs = 2;
        options.photos = 6;
        DeliveryBuilder(options).Write(temp.Path("tidy"));
        EXPECT_THAT(Check(temp.Path("tidy")).rules, IsEmpty());
    }
}

TEST(IntakeCheck, TakesNothingThatIsSeenInSoundDeliveriesForAnError)
{
    const TempFolder temp;
    SampleOptions options = Plain("国交省-20");
    options.lowerCaseNames = true;
    options.flagsInside = true;
    options.encoding = SampleEncoding::Utf8;
    options.prologue = "<!-- 作成: 2023 -->";
    DeliveryBuilder delivery(options);
    delivery.Set(0, "シリアル番号", "0000900").Set(1, "写真ファイル名", "PA_0B12Z.JPG");
    delivery.Set(2, "写真ファイル名", "P0000003.JPEG");
    for (const char* title : {"写真区分", "工種", "種別", "細別", "撮影箇所"}) {
        delivery.Remove(3, title).Set(4, title, "その他");
    }
    delivery.Set(3, "写真-大分類", "地質").Set(4, "写真-大分類", "その他");
    for (int photo = 0; photo < options.photos; ++photo) delivery.Set(photo, "メディア番号", "0");
    delivery.Write(temp.Path("set"));
    RecodeXml(temp.Path("set/photo/photo05.dtd"));
    EXPECT_THAT(Check(temp.Path("set")).errors, IsEmpty());
}

TEST(IntakeCheck, TakesAUsersTableLineByLine)
{
    const UserRules rules =
        ParseUserRules("# 自分の規則\n"
                       "text-blanks,error\n"
                       "no-such-rule,error\n"
                       "\n"
                       "place,warning,撮影箇所,like,No.*,測点が No. で始まりません\n"
                       "long,error,写真タイトル,longest,x,長すぎます\n"
                       "title,hint,写真タイトル,without,仮,仮の題です, まだ\n",
                       "rules.csv");
    EXPECT_EQ(rules.grades.at("text-blanks"), IntakeGrade::Error);
    EXPECT_THAT(rules.mistakes, ElementsAre(Field(&RuleNotRun::rule, "rules.csv:3"),
                                            Field(&RuleNotRun::rule, "rules.csv:6")));

    const TempFolder temp;
    SampleOptions options = Plain("国交省-20");
    options.tidy = true;
    DeliveryBuilder delivery(options);
    for (int photo = 0; photo < options.photos; ++photo) delivery.Set(photo, "撮影箇所", "No.7");
    delivery.Set(2, "撮影箇所", "7工区").Set(3, "写真タイトル", " 仮の全景");
    delivery.Write(temp.Path("set"));
    const Checked checked = Check(temp.Path("set"), rules);
    const auto finds = [](const char* rule, IntakeGrade grade, int photo) {
        return AllOf(Field(&IntakeFinding::rule, rule), Field(&IntakeFinding::grade, grade),
                     Field(&IntakeFinding::photos, ElementsAre(photo)));
    };
    EXPECT_THAT(checked.report.findings, ElementsAre(finds("text-blanks", IntakeGrade::Error, 3),
                                                     finds("place", IntakeGrade::Warning, 2),
                                                     finds("title", IntakeGrade::Hint, 3)));
    EXPECT_EQ(checked.report.findings.back().text, "仮の題です,まだ");
    EXPECT_EQ(checked.report.notRun.size(), rules.mistakes.size());
}
} // namespace
