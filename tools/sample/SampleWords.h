#pragma once

#include "sample/SampleSchema.h"

#include <algorithm>
#include <span>

/// What a photograph is about, whatever word the standard has for it.
enum class SampleSubject
{
    BeforeAfter,
    Progress,
    Safety,
    Material,
    Quality,
    Dimension,
    Disaster,
    Accident,
    Other
};

struct SampleCategory
{
    /// The value of 写真区分.
    std::string_view word;
    SampleSubject subject;
};

/// A leaf of the tree of works and what is measured there.
struct SampleBranch
{
    /// 工種, 種別 and 細別.
    std::string_view type;
    std::string_view kind;
    std::string_view detail;
    std::string_view measure;
    /// "m" or "mm": how the figures are written. They are kept in millimetres.
    std::string_view unit;
    int design;
    int tolerance;
};

struct SampleClient
{
    /// 発注者-大分類, 発注者-中分類 and 発注者-小分類.
    std::string_view ministry;
    std::string_view bureau;
    std::string_view office;
};

/// The words that the samples are made of.
namespace SampleWords
{
using WordList = std::span<const std::string_view>;
using enum SampleSubject;

/// Those that are used more often stand several times; the first is that of the photographs before
/// the work.
inline constexpr SampleCategory publicCategories[] = {
    {"着手前及び完成写真", BeforeAfter},
    {"施工状況写真", Progress},
    {"出来形管理写真", Dimension},
    {"施工状況写真", Progress},
    {"使用材料写真", Material},
    {"品質管理写真", Quality},
    {"施工状況写真", Progress},
    {"出来形管理写真", Dimension},
    {"安全管理写真", Safety},
    {"施工状況写真", Progress},
    {"出来形管理写真", Dimension},
    {"災害写真", Disaster},
    {"出来形管理写真", Dimension},
    {"その他", Other},
    {"施工状況写真", Progress},
    {"品質管理写真", Quality},
    {"出来形管理写真", Dimension},
    {"事故写真", Accident},
    {"施工状況写真", Progress},
    {"出来形管理写真", Dimension},
};

inline constexpr SampleCategory expresswayCategories[] = {
    {"着手前写真", BeforeAfter}, {"施工状況写真", Progress}, {"検査写真", Dimension},
    {"施工状況写真", Progress},  {"安全管理写真", Safety},   {"施工状況写真", Progress},
    {"検査写真", Dimension},     {"施工状況写真", Progress}, {"その他写真", Other},
    {"検査写真", Dimension},     {"完成写真", BeforeAfter},  {"災害写真", Disaster},
    {"施工状況写真", Progress},
};

/// The category of the photographs of the finished work, in the order of SampleFamily.
inline constexpr std::string_view completionCategories[] = {"着手前及び完成写真",
                                                            "着手前及び完成写真", "完成写真"};

inline constexpr SampleBranch branches[] = {
    {"舗装工", "アスファルト舗装工", "下層路盤工", "厚さ", "mm", 400, 30},
    {"舗装工", "アスファルト舗装工", "上層路盤工", "厚さ", "mm", 150, 15},
    {"舗装工", "アスファルト舗装工", "基層工", "厚さ", "mm", 50, 4},
    {"舗装工", "アスファルト舗装工", "表層工", "幅", "mm", 3500, 25},
    {"舗装修繕工", "舗装打換え工", "下層路盤", "厚さ", "mm", 200, 20},
    {"舗装修繕工", "切削オーバーレイ工", "路面切削", "深さ", "mm", 50, 5},
    {"道路土工", "掘削工", "土砂掘削", "基準高", "m", 10250, 40},
    {"道路土工", "法面整形工", "法面整形(盛土部)", "法長", "m", 6300, 90},
    {"河川土工", "掘削工", "掘削(土砂)", "基準高", "m", 4350, 45},
    {"河川土工", "盛土工", "盛土(築堤)", "天端幅", "mm", 4000, 80},
    {"河川土工", "法面整形工", "法面整形(切土部)", "法長", "m", 8450, 95},
    {"護岸工", "法覆護岸工", "コンクリートブロック積", "裏込厚", "mm", 300, 20},
    {"護岸工", "基礎工", "現場打基礎コンクリート", "幅", "mm", 600, 20},
    {"橋梁下部", "橋脚躯体工", "鉄筋組立(D29 @150)", "かぶり", "mm", 100, 8},
    {"橋梁下部", "橋脚躯体工", "躯体コンクリート", "敷幅", "mm", 2500, 30},
    {"橋梁下部", "場所打杭工", "場所打杭(φ1200)", "杭径", "mm", 1200, 20},
    {"擁壁工", "プレキャスト擁壁工", "プレキャストL型擁壁", "高さ", "mm", 2000, 30},
    {"擁壁工", "現場打擁壁工", "重力式擁壁", "天端幅", "mm", 400, 15},
    {"排水構造物工", "側溝工", "プレキャストU型側溝", "基準高", "m", 9875, 25},
    {"排水構造物工", "管渠工", "ヒューム管(B形管)", "延長", "m", 18500, 120},
    {"縁石工", "縁石工", "歩車道境界ブロック", "延長", "m", 60000, 200},
    {"防護柵工", "路側防護柵工", "ガードレール", "高さ", "mm", 800, 15},
    {"区画線工", "区画線工", "溶融式区画線", "幅", "mm", 150, 5},
    {"法面工", "吹付工", "モルタル吹付", "厚さ", "mm", 80, 9},
    {"仮設工", "土留・仮締切工", "鋼矢板(Ⅲ型)", "根入長", "m", 7500, 60},
};

/// In the order of SampleFamily.
inline constexpr SampleClient clients[] = {
    {"国土交通省", "北部地方整備局", "青葉国道事務所"},
    {"農林水産省", "北部農政局", "緑川農業水利事業所"},
    {"高速道路株式会社", "北部支社", "青葉工事事務所"},
};

inline constexpr std::string_view roadWorks[] = {
    "国道123号青葉地区舗装修繕工事",
    "緑川右岸築堤護岸工事",
    "国道123号青葉バイパス緑川橋下部工その２工事",
};
inline constexpr std::string_view farmWorks[] = {
    "緑川農業水利事業 東部幹線水路その３建設工事",
    "青葉地区ほ場整備 第２工区排水路工事",
};
inline constexpr std::string_view expresswayWorks[] = {
    "北部自動車道 青葉IC～緑川IC間舗装補修工事",
    "北部自動車道 緑川橋耐震補強工事",
};

/// In the order of SampleFamily.
inline constexpr WordList workNames[] = {roadWorks, farmWorks, expresswayWorks};

inline constexpr std::string_view beforeAfterTitles[] = {"全景(起点側より終点側を望む)",
                                                         "全景(終点側より)", "中間部 No.10付近",
                                                         "上流側より下流側を望む"};
inline constexpr std::string_view progressTitles[] = {
    "{細別}施工状況",
    "{細別} 敷均し状況",
    "{細別} 転圧状況(タイヤローラー)",
    "{細別}掘削状況(0.8m3バックホウ)",
    "{細別} 据付状況①",
    "{細別} コンクリート打設 バイブレータによる締固め",
    "{細別}養生状況(散水養生)"};
inline constexpr std::string_view safetyTitles[] = {"安全訓練実施状況", "KY活動状況",
                                                    "保安施設設置状況(夜間) 起点側",
                                                    "新規入場者教育", "足場点検状況 & 手すり確認"};
inline constexpr std::string_view materialTitles[] = {
    "再生砕石RC-40 検収状況", "異形棒鋼SD345 D29 検収", "U型側溝300×300 形状寸法確認",
    "生コン受入れ", "材料検査 JISマーク確認(㈱青葉製作所)"};
inline constexpr std::string_view qualityTitles[] = {
    "スランプ・空気量・塩化物試験", "現場密度測定(砂置換法)", "温度測定(到着時)",
    "圧縮強度試験 σ28 供試体採取", "プルーフローリング 3t/輪<たわみ確認>"};
inline constexpr std::string_view dimensionTitles[] = {
    "{細別}出来形測定", "{細別} {測定}測定", "{細別}(1層目){測定}測定",
    "{細別} {測定}測定 A－A断面", "{細別} 出来形管理 左側・中央・右側の3箇所"};
inline constexpr std::string_view disasterTitles[] = {"被災状況 No.3+5.0付近",
                                                      "台風14号 法面崩落箇所", "応急復旧完了"};
inline constexpr std::string_view accidentTitles[] = {"第三者車両接触 状況",
                                                      "架空線接触防止措置の確認"};
inline constexpr std::string_view otherTitles[] = {"監督員立会", "段階確認(髙橋監督員)",
                                                   "現場見学会の様子", "イメージアップ 掲示板"};

/// In the order of SampleSubject; {細別} and {測定} stand for those of the branch.
inline constexpr WordList titles[] = {beforeAfterTitles, progressTitles, safetyTitles,
                                      materialTitles,    qualityTitles,  dimensionTitles,
                                      disasterTitles,    accidentTitles, otherTitles};

inline constexpr std::string_view contractors[] = {"㈱青葉建設", "緑川・髙橋特定建設工事共同企業体",
                                                   "北部土木㈱"};
inline constexpr std::string_view notes[] = {"①工区",      "夜間施工",      "No.8～No.12間",
                                             "左岸側",     "第2回段階確認", "施工パーティ B班",
                                             "R&D試験区間"};
inline constexpr std::string_view remarks[] = {
    "立会者:髙橋監督員(㈱青葉建設 現場代理人同席)",
    "社内検査",
    "測点No.10～No.12間の代表箇所。測定は水糸を基準として行った。",
    "規格値 －25mm<差<＋50mm を満足している。",
    "段階確認願No.14 & 材料確認書No.3と対応",
    "雨天のため午後から施工。含水状態を確認後に敷均し、転圧は試験施工により6回とした。",
    "仕上り厚>=150mmを確認",
    "不可視部",
};
inline constexpr std::string_view controlRemarks[] = {
    "規格値±30mm以内",
    "転圧回数6回(初転圧2回、二次転圧4回)",
    "敷均し温度 110℃以上 → 実測148℃",
    "スランプ8±2.5cm:実測8.5cm 空気量4.5±1.5%:実測4.2%",
    "設計どおり施工したことを確認",
    "締固め度 規格値93%以上<実測値97.2%",
};
inline constexpr std::string_view drawingTitles[] = {"平面図",     "横断図",     "位置図",
                                                     "標準横断図", "A－A断面図", "施工区域平面図"};

inline std::span<const SampleCategory> CategoriesOf(SampleFamily family)
{
    if (family == SampleFamily::Nexco) return expresswayCategories;
    return publicCategories;
}

inline SampleSubject SubjectOf(std::string_view category)
{
    for (const auto family : {SampleFamily::Mlit, SampleFamily::Nexco}) {
        const auto categories = CategoriesOf(family);
        const auto found = std::ranges::find(categories, category, &SampleCategory::word);
        if (found != categories.end()) return found->subject;
    }
    return Other;
}
} // namespace SampleWords
