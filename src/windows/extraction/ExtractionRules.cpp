#include "windows/extraction/ExtractionRules.h"

#include "delivery/ToviData.h"

#include <algorithm>

namespace
{
/// As much of a text as is told of it, in characters.
constexpr int longestText = 24;

CString Shortened(std::string_view text)
{
    CString start;
    for (int count = 0; !text.empty(); ++count) {
        if (count == longestText) return start + "…";
        AppendUtf8(start, TakeCodePoint(text));
    }
    return start;
}

CString ItemText(const CString& title, const CString& text)
{
    return Shortened(title) + "が" +
           (text == missingValueTitle ? text : "「" + Shortened(text) + "」");
}

CString DateText(const ExtractionConditions& conditions)
{
    const CString what = conditions.dateKind == 0 ? "撮影年月日が" : "ファイル更新日が";
    return conditions.dateFrom == conditions.dateTo
               ? what + conditions.dateFrom
               : what + conditions.dateFrom + "～" + conditions.dateTo;
}

void AddSimple(const ExtractionConditions& conditions, CStringArray& texts)
{
    for (const SimpleCondition& condition : simpleConditions) {
        if (conditions.*condition.on) texts.Add(condition.text);
    }
}

void AddDetails(const ExtractionConditions& conditions, CStringArray& texts)
{
    for (std::size_t row = 0; row < conditions.itemOn.size(); ++row) {
        if (!conditions.itemOn[row]) continue;
        texts.Add(ItemText(conditions.itemTitle[row], conditions.itemText[row]));
    }
    if (conditions.dateOn) texts.Add(DateText(conditions));
}

CString Joined(const CStringArray& texts, const ExtractionConditions& conditions)
{
    CString joined;
    for (const CString& text : texts) {
        if (!joined.empty()) joined += conditions.orMode == 0 ? " かつ " : " または ";
        joined += text;
    }
    return joined;
}
/// The photographs of the selected node or label, those that aren't shown, too.
int CountUnnarrowed(const ToviData& document, bool ofLabel)
{
    if (ofLabel) {
        const int label = document.GetSelectedIndex();
        return label < 0 ? 0 : document.CountLabel(static_cast<unsigned long>(label));
    }
    CArray<int> inNode;
    if (document.GetSelectedNode() != nullptr) document.GetSelectedNode()->GetAllUnder(inNode);
    return inNode.GetSize();
}
} // namespace

bool HasCondition(const ExtractionConditions& conditions)
{
    return conditions.dateOn ||
           std::ranges::find(conditions.itemOn, true) != conditions.itemOn.end() ||
           std::ranges::any_of(simpleConditions, [&conditions](const SimpleCondition& condition) {
               return conditions.*condition.on;
           });
}

CString ConditionsText(const ExtractionConditions& conditions)
{
    CStringArray texts;
    AddSimple(conditions, texts);
    AddDetails(conditions, texts);
    return Joined(texts, conditions);
}

CString DetailConditionsText(const ExtractionConditions& conditions)
{
    CStringArray texts;
    AddDetails(conditions, texts);
    return Joined(texts, conditions);
}

ConditionsChange ChangeTo(const ExtractionConditions& conditions, bool running)
{
    if (HasCondition(conditions)) {
        return running ? ConditionsChange::RunAnew : ConditionsChange::CanRun;
    }
    return running ? ConditionsChange::End : ConditionsChange::CannotRun;
}

ExtractionView ViewOf(const ToviData& document, bool running, bool ofLabel)
{
    ExtractionView view{
        .extracted = running, .searched = !document.GetSearchText().empty(), .ofLabel = ofLabel};
    if (!view.extracted && !view.searched) return view;
    view.shown = document.GetCurrentPhotoCount();
    view.all = CountUnnarrowed(document, ofLabel);
    if (ofLabel && !view.searched) {
        view.kind = ExtractionView::Label;
    } else {
        view.kind = view.shown == 0 ? ExtractionView::Nothing : ExtractionView::Narrowed;
    }
    return view;
}

CString StripText(const ExtractionView& view, const ExtractionConditions& conditions)
{
    const CString counts = Format("%d 枚のうち %d 枚を表示", view.all, view.shown);
    const CString what = "抽出中： " + ConditionsText(conditions);
    const CString notOfLabel = "（付箋の写真は抽出されません）";
    switch (view.kind) {
    case ExtractionView::Off:
        return {};
    case ExtractionView::Label:
        return what + notOfLabel;
    case ExtractionView::Narrowed:
    case ExtractionView::Nothing:
        break;
    }
    if (!view.extracted) return counts;
    return view.ofLabel ? counts + notOfLabel : what + "（" + counts + "）";
}

CString EndText(const ExtractionView& view)
{
    if (!view.extracted) return "検索を終了";
    return view.searched ? "抽出と検索を解除" : "抽出を解除";
}

CString NothingText(const ExtractionView& view, const ExtractionConditions& conditions,
                    const CString& searchText)
{
    const CString found = "「" + Shortened(searchText) + "」を含む";
    if (!view.extracted || view.ofLabel) return found + "写真はありません。";
    return "この条件で抽出される写真は1枚もありませんでした。\n\n" + ConditionsText(conditions) +
           (view.searched ? "\n" + found : CString());
}
