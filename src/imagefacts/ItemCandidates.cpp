#include "imagefacts/ItemCandidates.h"

#include "imagefacts/ToviControlValueArray.h"
#include "items/ToviItemDef.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <unordered_set>

namespace
{
struct Fact
{
    const char* title;
    bool shownAtFirst;
};

constexpr const char* shownDefinitions[] = {
    "写真ファイル日本語名", "写真タイトル",    "工種区分予備", "撮影箇所",
    "撮影年月日",           controlValueTitle, "請負者説明文"};

constexpr Fact fileFacts[] = {{"ファイルサイズ", true}, {"幅×高さ", true},
                              {"総画素数", true},       {"作成日時", false},
                              {"最終更新日時", true},   {"読み取り専用", false}};

constexpr Fact exifFacts[] = {{"幅×高さ(Exif)", true},
                              {"総画素数(Exif)", true},
                              {"撮影日時", true},
                              {"緯度", true},
                              {"経度", true},
                              {"高度", false},
                              {"ファイル変更日時", false},
                              {"ディジタルデータの作成日時", false},
                              {"画像入力機器のメーカー名", true},
                              {"画像入力機器のモデル名", true},
                              {"使用ソフトウェア名", true},
                              {"作者名", false},
                              {"撮影著作権者/編集著作権者", false},
                              {"Exifバージョン", false},
                              {"露出時間", false},
                              {"シャッタースピード", false},
                              {"絞り値", false},
                              {"露光補正値", false},
                              {"レンズ最少F値", false},
                              {"測光方式", false},
                              {"フラッシュ", false},
                              {"レンズの焦点距離", false},
                              {"Fナンバー", false}};

/// Whether an item is shown, by its title and whether it is shown at first.
using IsShown = std::function<bool(const CString& title, bool shownAtFirst)>;

ToviItemShowSettings Candidates(const ToviItemDef& itemDef, const IsShown& isShown)
{
    ToviItemShowSettings items;
    const auto add = [&](const CString& title, bool atFirst, int index, Grade grade,
                         InfoType type) {
        items.Add(title.c_str(), isShown(title, atFirst), index, grade, type);
    };
    for (int index = 0; index < itemDef.GetCount(); ++index) {
        const Definition& definition = itemDef[index];
        if (definition.show != ShowMainList || definition.title.empty()) continue;
        const bool atFirst =
            std::any_of(std::begin(shownDefinitions), std::end(shownDefinitions),
                        [&definition](const char* title) { return definition.title == title; });
        add(definition.title, atFirst, index, definition.grade, InfoDelivery);
    }
    const int behind = itemDef.GetCount();
    for (const Fact& fact : fileFacts) {
        add(fact.title, fact.shownAtFirst, behind, GradeOptional, InfoFile);
    }
    for (const Fact& fact : exifFacts) {
        add(fact.title, fact.shownAtFirst, behind, GradeOptional, InfoExif);
    }
    return items;
}
} // namespace

ToviItemShowSettings DefaultItems(const ToviItemDef& itemDef)
{
    return Candidates(itemDef, [](const CString&, bool atFirst) { return atFirst; });
}

ToviItemShowSettings ItemsWithout(const ToviItemDef& itemDef, const CStringArray& hidden)
{
    std::unordered_set<CString> folded;
    for (const CString& title : hidden) folded.insert(FoldCase(title));
    return Candidates(itemDef, [&folded](const CString& title, bool) {
        return !folded.contains(FoldCase(title));
    });
}
