#include "extraction/ExtractionEngine.h"

#include "extraction/FetchAhead.h"
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
                                   const ExtractionConditions& conditions)
    : itemDef(def), photoData(photos)
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
    tests.push_back([holds = std::move(holds)](ToviPhoto& photo) {
        return holds(photo) ? Verdict::Holds : Verdict::Fails;
    });
}

void ExtractionEngine::AddKeyPhoto()
{
    const int item = itemDef.GetIndexFromTitle(keyPhotoTitle);
    if (item == -1) return;
    Add([item](const ToviPhoto& photo) {
        return photo.GetTitle(item) == std::string_view(keyPhotoValue);
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
    const int index = itemDef.GetIndexFromTitle(title);
    const bool orEmpty = text == missingValueTitle;
    Add([index, orEmpty, text](const ToviPhoto& photo) {
        const ToviItemArray& items = photo.GetItems();
        return std::any_of(items.begin(), items.end(), [&](const ToviItem& item) {
            return index != -1 && item.GetDefIndex() == index &&
                   (item.GetValue() == text || (orEmpty && item.GetValue().empty()));
        });
    });
}

void ExtractionEngine::AddDate(const ExtractionConditions& conditions)
{
    const auto judge = [from = conditions.dateFrom, to = conditions.dateTo](std::string_view date) {
        return from <= date && date <= to ? Verdict::Holds : Verdict::Fails;
    };
    if (conditions.dateKind != 0) {
        tests.push_back([judge](ToviPhoto& photo) { return judge(photo.GetFileRenewalDate()); });
        return;
    }
    const int item = itemDef.GetIndexFromTitle(shootingDateTitle);
    tests.push_back([judge, item](const ToviPhoto& photo) {
        const std::string_view date = photo.GetTitle(item);
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

ExtractionEngine::Verdict ExtractionEngine::JudgeAND(ToviPhoto& photo) const
{
    for (const Condition& test : tests) {
        const Verdict verdict = test(photo);
        if (verdict != Verdict::Holds) return verdict;
    }
    return Verdict::Holds;
}

ExtractionEngine::Verdict ExtractionEngine::JudgeOR(ToviPhoto& photo) const
{
    for (const Condition& test : tests) {
        const Verdict verdict = test(photo);
        if (verdict != Verdict::Fails) return verdict;
    }
    return Verdict::Fails;
}

ExtractionEngine::Outcome ExtractionEngine::Run(ToviPhotoRef& current,
                                                Verdict (ExtractionEngine::*judge)(ToviPhoto&)
                                                    const) const
{
    // A handler that runs inside the progress window's pump may change the current array.
    const std::vector<int> indexes(current.begin(), current.end());
    std::vector<ToviPhoto*> photos;
    photos.reserve(indexes.size());
    for (const int index : indexes) photos.push_back(photoData[index]);
    const CString behindNumber = " / " + std::to_string(indexes.size());

    ToviProgressDlg progress(true);
    progress.Begin(current.GetSize());
    CArray<int> result;
    for (std::size_t i = 0; i < photos.size(); ++i) {
        if (photos[i] == nullptr) return Outcome::Abandoned;
        FetchAhead(photos, i);
        const Verdict verdict = (this->*judge)(*photos[i]);
        if (verdict == Verdict::Holds) result.Add(indexes[i]);
        if (verdict == Verdict::NoDate) continue;
        progress.SetMessage(progressText + std::to_string(i + 1) + behindNumber);
        if (progress.GetCancel()) return Outcome::Cancelled;
        progress.StepIt();
    }
    current.Assign(result);
    return Outcome::Done;
}
