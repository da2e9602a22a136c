#include "intake/IntakeCheck.h"

#include "items/ToviItemDef.h"
#include "photos/ToviPhoto.h"

#include <algorithm>
#include <tuple>

namespace
{
struct NeedRow
{
    IntakeNeed need;
    bool (*isMet)(const IntakeDelivery& delivery);
    const char* why;
};

bool HasIndex(const IntakeDelivery& delivery)
{
    return std::any_of(delivery.indexes.begin(), delivery.indexes.end(),
                       [](const IntakeIndex& index) { return index.isReadable; });
}

constexpr NeedRow needs[] = {
    {IntakeNeed::Files, [](const IntakeDelivery& d) { return d.filesExamined; },
     "ファイルの中身を調べていません"},
    {IntakeNeed::Index, HasIndex, "索引ファイル（INDEX_C.XML など）がないか、読めません"},
    {IntakeNeed::Period, [](const IntakeDelivery& d) { return d.Period().has_value(); },
     "索引ファイルに工期がありません"},
};

/// Why a rule with this need can't look at \p delivery; empty when it can.
CString WhyNot(const IntakeDelivery& delivery, IntakeNeed need)
{
    if (need == IntakeNeed::Elements) return delivery.xml.problem;
    for (const NeedRow& row : needs) {
        if (row.need == need) return row.isMet(delivery) ? "" : row.why;
    }
    return {};
}

/// Makes findings of what one rule tells: one for all photographs with the same saying.
class Gathering
{
public:
    Gathering(IntakeFinding theCommon, std::vector<IntakeFinding>& out)
        : common(std::move(theCommon)), findings(out)
    {}

    void Take(IntakeSpot spot)
    {
        const auto [at, isNew] =
            places.try_emplace(std::tuple(spot.item, spot.file, spot.detail), findings.size());
        if (isNew) {
            findings.push_back(common);
            IntakeFinding& finding = findings.back();
            if (!spot.detail.empty()) finding.text += "（" + spot.detail + "）";
            finding.item = std::move(spot.item);
            finding.file = std::move(spot.file);
        }
        std::vector<int>& photos = findings[at->second].photos;
        const bool isKnown = !photos.empty() && photos.back() == spot.photo;
        if (spot.photo >= 0 && !isKnown) photos.push_back(spot.photo);
    }

private:
    IntakeFinding common;
    std::vector<IntakeFinding>& findings;
    std::map<std::tuple<CString, CString, CString>, std::size_t> places;
};

void LookAtItem(const IntakeDelivery& delivery, const UserRule& rule, const TellSpot& tell)
{
    const int index = delivery.def.GetIndexFromTitle(rule.item);
    for (int i = 0; i < delivery.Count(); ++i) {
        CStringArray values;
        delivery.document.GetPhotoActualPhotoArray(i)->GetTitleFromIndex(index, values);
        if (values.IsEmpty()) values.Add(CString());
        const bool isFound = std::any_of(values.begin(), values.end(), rule.isWrong);
        if (isFound) tell({.photo = i, .item = rule.item});
    }
}

void RunUserRule(const IntakeDelivery& delivery, const UserRule& rule, IntakeReport& report)
{
    if (delivery.def.GetIndexFromTitle(rule.item) < 0) {
        report.notRun.push_back({rule.id, "この要領の版に「" + rule.item + "」がありません"});
        return;
    }
    Gathering gathering({.rule = rule.id, .grade = rule.grade, .text = rule.sentence},
                        report.findings);
    LookAtItem(delivery, rule, [&gathering](IntakeSpot spot) { gathering.Take(std::move(spot)); });
}

void RunRule(const IntakeDelivery& delivery, const IntakeRule& rule, IntakeGrade grade,
             IntakeReport& report)
{
    if (CString why = WhyNot(delivery, rule.need); !why.empty()) {
        report.notRun.push_back({rule.id, std::move(why)});
        return;
    }
    Gathering gathering(
        {.rule = rule.id, .grade = grade, .text = rule.sentence, .action = rule.action},
        report.findings);
    rule.look(delivery, [&gathering](IntakeSpot spot) { gathering.Take(std::move(spot)); });
}

bool HoldsFor(const IntakeRule& rule, const IntakeDelivery& delivery)
{
    return (rule.generations & delivery.generation) != 0 && (rule.owners & delivery.owner) != 0;
}
} // namespace

int IntakeReport::CountOf(IntakeGrade grade) const
{
    return static_cast<int>(
        std::count_if(findings.begin(), findings.end(),
                      [grade](const IntakeFinding& finding) { return finding.grade == grade; }));
}

std::vector<const IntakeRule*> AllIntakeRules()
{
    std::vector<const IntakeRule*> rules;
    for (const auto& group : {StructureRules(), NameRules(), ItemRules(), TextRules(), FileRules(),
                              PictureRules(), DateRules(), IndexRules()}) {
        for (const IntakeRule& rule : group) rules.push_back(&rule);
    }
    return rules;
}

IntakeReport CheckIntake(const IntakeDelivery& delivery, const UserRules& user)
{
    IntakeReport report;
    report.notRun = user.mistakes;
    for (const IntakeRule* rule : AllIntakeRules()) {
        if (!HoldsFor(*rule, delivery)) continue;
        const auto regraded = user.grades.find(rule->id);
        const std::optional<IntakeGrade> grade =
            regraded == user.grades.end() ? rule->grade : regraded->second;
        if (grade) RunRule(delivery, *rule, *grade, report);
    }
    for (const UserRule& rule : user.rules) RunUserRule(delivery, rule, report);
    std::stable_sort(report.findings.begin(), report.findings.end(),
                     [](const IntakeFinding& left, const IntakeFinding& right) {
                         return left.grade < right.grade;
                     });
    return report;
}
