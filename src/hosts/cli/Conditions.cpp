#include "hosts/cli/Conditions.h"

#include "extraction/ToviSortCondition.h"
#include "hosts/cli/NearWords.h"
#include "hosts/cli/Records.h"
#include "photos/LabelSlots.h"
#include "platform/text/SearchFolding.h"

#include <algorithm>
#include <cctype>

namespace
{
/// The command line in the part of the extraction window.
class ExtractionByCommand : public ToviExtractionDlg
{
public:
    explicit ExtractionByCommand(ExtractionConditions wanted) : conditions(std::move(wanted)) {}

    const ExtractionConditions& GetConditions() const override { return conditions; }
    void CancelExtraction(CancelExt) override { cancelled = true; }
    bool IsCancelled() const { return cancelled; }

private:
    ExtractionConditions conditions;
    bool cancelled = false;
};

bool IsDate(const CString& text)
{
    constexpr std::string_view form = "0000-00-00";
    return text.size() == form.size() &&
           std::equal(text.begin(), text.end(), form.begin(), [](char c, char f) {
               return f == '0' ? std::isdigit(static_cast<unsigned char>(c)) != 0 : c == f;
           });
}

ExtractionConditions ConditionsOf(const ConditionArguments& arguments)
{
    ExtractionConditions conditions = arguments.conditions;
    for (std::size_t i = 0; i < arguments.items.size(); ++i) {
        const std::size_t equals = arguments.items[i].find('=');
        conditions.itemOn[i] = true;
        conditions.itemTitle[i] = arguments.items[i].substr(0, equals);
        conditions.itemText[i] = arguments.items[i].substr(equals + 1);
    }
    conditions.dateOn = !conditions.dateFrom.empty();
    conditions.dateKind = arguments.fileDate ? 1 : 0;
    conditions.orMode = arguments.any ? 1 : 0;
    return conditions;
}

bool AnyIsOn(const ExtractionConditions& c)
{
    return c.keyPhoto || c.ngPhoto || c.notcheckPhoto || c.notExifinfo || c.neceNotwrite ||
           c.dateOn || c.itemOn[0];
}

/// What is wrong with the conditions, in a sentence; empty when nothing is.
CString WhatIsWrong(const ConditionArguments& arguments)
{
    const ExtractionConditions& conditions = arguments.conditions;
    if (arguments.items.size() > conditions.itemOn.size()) {
        return "--item は3つまでです。条件を減らしてください。";
    }
    const bool allNamed =
        std::all_of(arguments.items.begin(), arguments.items.end(),
                    [](const std::string& item) { return item.find('=') != std::string::npos; });
    if (!allNamed) return "--item は 項目名=値 の形で指定してください（例: --item 工種=舗装工）。";
    if (conditions.dateFrom.empty() != conditions.dateTo.empty()) {
        return "--date-from と --date-to は両方を指定してください。";
    }
    const bool dated = !conditions.dateFrom.empty();
    if (dated && !(IsDate(conditions.dateFrom) && IsDate(conditions.dateTo))) {
        return "日付は 2024-03-31 の形で指定してください。";
    }
    const bool narrowed = AnyIsOn(ConditionsOf(arguments));
    if (arguments.label >= 0 && (narrowed || !arguments.choice.nodes.empty())) {
        return "--label は全体からその付箋の写真を選ぶので、--node "
               "や抽出条件と一緒には使えません。";
    }
    if ((arguments.all || arguments.any) && !narrowed) {
        return "--and と --or は抽出条件と一緒に指定してください。";
    }
    if (arguments.fileDate && !dated) {
        return "--file-date は --date-from と --date-to と一緒に指定してください。";
    }
    if (arguments.text && SearchWords(*arguments.text).empty()) {
        return "--text には探す文字を指定してください。";
    }
    if (arguments.descending && arguments.sortItem.empty()) {
        return "--descending は --sort と一緒に指定してください。";
    }
    return {};
}

/// The items that the command line names and \p def doesn't, in a sentence; empty when there are
/// none.
CString UnknownItems(const ToviItemDef& def, const ConditionArguments& arguments)
{
    const ExtractionConditions conditions = ConditionsOf(arguments);
    std::vector<CString> titles(conditions.itemTitle.begin(), conditions.itemTitle.end());
    titles.push_back(arguments.sortItem);
    for (const CString& title : titles) {
        if (title.empty() || def.GetIndexFromTitle(title) >= 0) continue;
        std::vector<CString> known;
        for (int i = 0; i < def.GetCount(); ++i) known.push_back(def.GetTitleFromIndex(i));
        return "項目「" + title + "」はこの納品データにありません。" + MeantPerhaps(title, known) +
               "項目の名前は tovi photos で確かめてください。";
    }
    return {};
}

void SetSort(ToviData& document, const ConditionArguments& arguments)
{
    ToviSortCondition condition;
    condition.ExecSort(true);
    condition.SetKeyItem(arguments.sortItem.c_str());
    condition.Ascending(!arguments.descending);
    document.SetSortCondition(condition);
}

int Extract(ToviData& document, const ExtractionConditions& conditions)
{
    ExtractionByCommand window(conditions);
    document.SetExtractionData(&window);
    document.ExecExtraction();
    document.SetExtractionData(nullptr);
    if (!window.IsCancelled()) return ExitDone;
    Complain("中断しました。");
    return ExitInterrupted;
}
} // namespace

Options ConditionOptions(ConditionArguments& arguments)
{
    ExtractionConditions& conditions = arguments.conditions;
    return Joined(
        {{TreeTypeOption(arguments.choice.type), NodeOption(arguments.choice.nodes)},
         RecordOptions(arguments.record),
         {{.name = "--label",
           .help = "この付箋の写真を選ぶ（0 OK、1～3 NG1～NG3、4 コメント、5 任意）",
           .target = &arguments.label,
           .valueName = "N",
           .accepted = Between{0, labelCount - 1}},
          {"--and", "抽出条件のすべてに当たる写真（既定）", &arguments.all},
          {.name = "--or",
           .help = "抽出条件のどれかに当たる写真",
           .target = &arguments.any,
           .excluded = "--and"},
          {"--key-photo", "抽出条件: 代表写真", &conditions.keyPhoto},
          {"--ng", "抽出条件: NG写真", &conditions.ngPhoto},
          {"--unchecked", "抽出条件: 未検査写真", &conditions.notcheckPhoto},
          {"--no-exif", "抽出条件: Exif情報非保有写真", &conditions.notExifinfo},
          {"--missing-required", "抽出条件: 必須項目未入力写真", &conditions.neceNotwrite},
          {"--item", "抽出条件: 項目の値。3つまで。空の値は 項目名=【未記入】", &arguments.items,
           "TITLE=TEXT ..."},
          {"--text",
           "これらの語のすべてが項目、コメント、ファイル名のどこかにある写真に絞る。全角と半角、"
           "カナとかな、大文字と小文字は区別しない",
           &arguments.text, "TEXT"},
          {"--date-from", "抽出条件: 撮影年月日がこの日から", &conditions.dateFrom, "D"},
          {"--date-to", "抽出条件: 撮影年月日がこの日まで", &conditions.dateTo, "D"},
          {"--file-date", "撮影年月日の代わりにファイル更新日で見る", &arguments.fileDate},
          {"--sort", "この項目の順に並べる", &arguments.sortItem, "TITLE"},
          {"--descending", "逆の順に並べる", &arguments.descending}}});
}

int MakeCurrentArray(ToviData& document, const ConditionArguments& arguments)
{
    if (const CString wrong = WhatIsWrong(arguments); !wrong.empty()) {
        Complain(wrong);
        return ExitWrongUsage;
    }
    if (const CString unknown = UnknownItems(*document.GetItemDef(), arguments); !unknown.empty()) {
        Complain(unknown);
        return ExitWrongUsage;
    }
    if (!LoadRecord(document, arguments.record)) return ExitFailed;
    if (!SelectNode(document, arguments.choice.nodes)) return ExitWrongUsage;
    if (!arguments.sortItem.empty()) SetSort(document, arguments);
    if (arguments.text) document.SetSearchText(*arguments.text);
    int status = ExitDone;
    if (arguments.label >= 0) {
        document.SetSelected(arguments.label);
    } else if (const ExtractionConditions conditions = ConditionsOf(arguments);
               AnyIsOn(conditions)) {
        status = Extract(document, conditions);
    } else {
        document.SetSelected(document.GetSelectedNode(), true);
    }
    document.PhotoSelectSetting(document.GetIndexPhotoArray(0));
    return status;
}
