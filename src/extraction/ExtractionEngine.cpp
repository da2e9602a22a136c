#include "extraction/ExtractionEngine.h"

#include "items/ToviItemDef.h"
#include "photos/ToviNode.h"
#include "work/ToviProgressDlg.h"

#include <algorithm>

namespace
{
constexpr const char* keyPhotoTitle = "代表写真";
constexpr const char* keyPhotoValue = "1";
constexpr const char* shootingDateTitle = "撮影年月日";
constexpr const char* progressText = "写真データ抽出中　";

bool IsShownRequired(const Definition& definition)
{
    return definition.grade == GradeRequired &&
           (definition.show == ShowMainList || definition.show == ShowZoomDlg);
}
} // namespace

ExtractionEngine::ExtractionEngine(const ToviItemDef& def, const ToviPhotoArray& photos,
                                   const ItemColumns& itemColumns,
                                   const ExtractionConditions& conditions)
    : itemDef(def), photoData(photos), columns(itemColumns)
{
    if (conditions.keyPhoto) AddKeyPhoto();
    if (conditions.ngPhoto) Add([](const ToviPhoto& photo) { return photo.HasNGLabel(); });
    if (conditions.notcheckPhoto) Add([](const ToviPhoto& photo) { return photo.IsNotCheck(); });
    if (conditions.notExifinfo) Add([](ToviPhoto& photo) { return !photo.CheckExif(); });
    if (conditions.neceNotwrite) AddRequiredItems();
    for (std::size_t i = 0; i < conditions.itemOn.size(); ++i) {
        if (conditions.itemOn[i]) AddItem(conditions.itemTitle[i], conditions.itemText[i]);
    }
    if (conditions.dateOn) AddDate(conditions);
}

void ExtractionEngine::Add(std::function<bool(ToviPhoto&)> holds)
{
    tests.push_back([this, holds = std::move(holds)](int photo) {
        return holds(*photoData[photo]) ? Verdict::Holds : Verdict::Fails;
    });
}

void ExtractionEngine::AddFirst(int item, const std::function<Verdict(const CString&)>& judge)
{
    const ItemColumn& column = columns.Of(item);
    std::vector<Verdict> verdicts;
    for (const CString& value : column.Values()) verdicts.push_back(judge(value));
    tests.push_back([&column, verdicts, ofNone = judge({})](int photo) {
        const int first = column.First(photo);
        return first == ItemColumn::none ? ofNone : verdicts[static_cast<std::size_t>(first)];
    });
}

void ExtractionEngine::AddAny(int item, const std::function<bool(const CString&)>& isWanted)
{
    const ItemColumn& column = columns.Of(item);
    std::vector<bool> wanted;
    for (const CString& value : column.Values()) wanted.push_back(isWanted(value));
    tests.push_back([&column, wanted](int photo) {
        return column.HasAny(photo, wanted) ? Verdict::Holds : Verdict::Fails;
    });
}

void ExtractionEngine::AddKeyPhoto()
{
    const int item = itemDef.GetIndexFromTitle(keyPhotoTitle);
    if (item == -1) return;
    AddFirst(item, [](const CString& value) {
        return value == keyPhotoValue ? Verdict::Holds : Verdict::Fails;
    });
}

void ExtractionEngine::AddRequiredItems()
{
    std::vector<bool> required(static_cast<std::size_t>(itemDef.GetCount()));
    for (int i = 0; i < itemDef.GetCount(); ++i) {
        required[static_cast<std::size_t>(i)] = IsShownRequired(itemDef.GetDef(i));
    }
    // An item that isn't there at all doesn't count: only what was read and is empty.
    Add([required](const ToviPhoto& photo) {
        const ToviItemArray& items = photo.GetItems();
        return std::any_of(items.begin(), items.end(), [&required](const ToviItem& item) {
            const auto index = static_cast<std::size_t>(item.GetDefIndex());
            return item.GetValue().empty() && index < required.size() && required[index];
        });
    });
}

void ExtractionEngine::AddItem(const CString& title, const CString& text)
{
    const bool orEmpty = text == missingValueTitle;
    AddAny(itemDef.GetIndexFromTitle(title), [&text, orEmpty](const CString& value) {
        return value == text || (orEmpty && value.empty());
    });
}

void ExtractionEngine::AddDate(const ExtractionConditions& conditions)
{
    const auto judge = [from = conditions.dateFrom, to = conditions.dateTo](std::string_view date) {
        return from <= date && date <= to ? Verdict::Holds : Verdict::Fails;
    };
    if (conditions.dateKind != 0) {
        tests.push_back(
            [this, judge](int photo) { return judge(photoData[photo]->GetFileRenewalDate()); });
        return;
    }
    AddFirst(itemDef.GetIndexFromTitle(shootingDateTitle), [&judge](const CString& date) {
        return date.empty() ? Verdict::NoDate : judge(date);
    });
}

ExtractionEngine::Outcome ExtractionEngine::ExecExtractionAND(ToviPhotoRef& current) const
{
    return Run(current, &ExtractionEngine::JudgeAND);
}

ExtractionEngine::Outcome ExtractionEngine::ExecExtractionOR(ToviPhotoRef& current) const
{
    return Run(current, &ExtractionEngine::JudgeOR);
}

ExtractionEngine::Verdict ExtractionEngine::JudgeAND(int photo) const
{
    for (const Condition& test : tests) {
        const Verdict verdict = test(photo);
        if (verdict != Verdict::Holds) return verdict;
    }
    return Verdict::Holds;
}

ExtractionEngine::Verdict ExtractionEngine::JudgeOR(int photo) const
{
    for (const Condition& test : tests) {
        const Verdict verdict = test(photo);
        if (verdict != Verdict::Fails) return verdict;
    }
    return Verdict::Fails;
}

ExtractionEngine::Outcome ExtractionEngine::Run(ToviPhotoRef& current,
                                                Verdict (ExtractionEngine::*judge)(int) const) const
{
    // A handler that runs inside the progress window's pump may change the current array.
    const std::vector<int> indexes(current.begin(), current.end());
    ToviProgressDlg progress(true);
    progress.Begin(current.GetSize());
    CArray<int> result;
    int done = 0;
    for (const int index : indexes) {
        if (photoData[index] == nullptr) return Outcome::Abandoned;
        const Verdict verdict = (this->*judge)(index);
        if (verdict == Verdict::Holds) result.Add(index);
        ++done;
        if (verdict == Verdict::NoDate) continue;
        progress.SetMessage(progressText, done, static_cast<int>(indexes.size()));
        if (progress.GetCancel()) return Outcome::Cancelled;
        progress.StepIt();
    }
    current.Assign(result);
    return Outcome::Done;
}
