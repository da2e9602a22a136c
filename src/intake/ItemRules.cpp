#include "intake/IntakeRule.h"

#include "items/ToviItemDef.h"
#include "photos/ToviPhoto.h"

#include <algorithm>

namespace
{
using enum IntakeItem;

constexpr std::string_view classes[] = {"工事", "測量", "調査", "地質", "広報", "設計", "その他"};
constexpr std::string_view categories[] = {"着手前及び完成写真", "施工状況写真", "安全管理写真",
                                           "使用材料写真",       "品質管理写真", "出来形管理写真",
                                           "災害写真",           "事故写真",     "その他"};
constexpr std::string_view nexcoCategories[] = {
    "着手前写真", "施工状況写真", "検査写真", "安全管理写真", "完成写真", "災害写真", "その他写真"};

template <std::size_t count>
bool IsOneOf(const std::string_view (&words)[count], std::string_view text)
{
    return std::find(std::begin(words), std::end(words), text) != std::end(words);
}

bool IsBlank(std::string_view text)
{
    return TrimmedLeft(text).empty();
}

using IsMeant = bool (*)(const IntakePhoto& photo);

bool IsEvery(const IntakePhoto&)
{
    return true;
}

bool IsWork(const IntakePhoto& photo)
{
    return photo[Class] == "工事";
}

bool IsSubmittedWork(const IntakePhoto& photo)
{
    return IsWork(photo) && photo[Frequency] == "1";
}

/// 品質管理写真 or 出来形管理写真 that is submitted: the only ones that can't do without 工種.
bool IsSubmittedResult(const IntakePhoto& photo)
{
    const std::string_view category = photo[Category];
    return IsSubmittedWork(photo) && (category == "品質管理写真" || category == "出来形管理写真");
}

bool IsSubmittedProgress(const IntakePhoto& photo)
{
    const std::string_view category = photo[Category];
    return IsSubmittedWork(photo) && (category == "施工状況写真" || category == "使用材料写真");
}

bool WantsWorkType(const IntakePhoto& photo)
{
    return IsSubmittedProgress(photo) ||
           (IsSubmittedWork(photo) && photo[Category] == "安全管理写真");
}

bool WantsKind(const IntakePhoto& photo)
{
    return IsSubmittedResult(photo) || IsSubmittedProgress(photo);
}

bool IsMeasured(const IntakePhoto& photo)
{
    return IsSubmittedWork(photo) && photo[Category] == "出来形管理写真";
}

bool IsFinished(const IntakePhoto& photo)
{
    return IsWork(photo) && photo[Category] == "完成写真";
}

/// Tells the photographs that \p isMeant means and that have nothing under \p item, if the kind has
/// it.
void TellMissing(const IntakeDelivery& delivery, IntakeItem item, IsMeant isMeant,
                 const TellSpot& tell)
{
    if (!delivery.Has(item)) return;
    for (int i = 0; i < delivery.Count(); ++i) {
        const IntakePhoto& photo = delivery.photos[static_cast<std::size_t>(i)];
        if (IsBlank(photo[item]) && isMeant(photo)) tell({.photo = i, .item = TitleOf(item)});
    }
}

template <IntakeItem item, IsMeant isMeant = IsEvery>
void Missing(const IntakeDelivery& delivery, const TellSpot& tell)
{
    TellMissing(delivery, item, isMeant, tell);
}

/// Tells what stands under \p item and isn't meant to.
void TellUnknownWords(const IntakeDelivery& delivery, IntakeItem item,
                      bool (*isKnown)(std::string_view value), const TellSpot& tell)
{
    for (int i = 0; i < delivery.Count(); ++i) {
        const std::string_view value = delivery.photos[static_cast<std::size_t>(i)][item];
        if (!IsBlank(value) && !isKnown(value))
            tell({.photo = i, .item = TitleOf(item), .detail = CString(value)});
    }
}

template <IntakeItem item, bool (*isKnown)(std::string_view)>
void UnknownWords(const IntakeDelivery& delivery, const TellSpot& tell)
{
    TellUnknownWords(delivery, item, isKnown, tell);
}

bool IsClass(std::string_view value)
{
    return IsOneOf(classes, value);
}
bool IsCategory(std::string_view value)
{
    return IsOneOf(categories, value);
}
bool IsNexcoCategory(std::string_view value)
{
    return IsOneOf(nexcoCategories, value);
}
bool IsFlag(std::string_view value)
{
    return value == "0" || value == "1";
}

/// Tells the photographs that have a drawing with one of these and without the other.
void TellDrawingsWithout(const IntakeDelivery& delivery, const char* missing, const char* present,
                         const TellSpot& tell)
{
    const int wanted = delivery.def.GetIndexFromTitle(missing);
    const int given = delivery.def.GetIndexFromTitle(present);
    if (wanted < 0 || given < 0) return;
    for (int i = 0; i < delivery.Count(); ++i) {
        int balance = 0;
        for (const ToviItem& item : delivery.document.GetPhotoActualPhotoArray(i)->GetItems()) {
            if (IsBlank(item.GetValue())) continue;
            if (item.GetDefIndex() == given) ++balance;
            if (item.GetDefIndex() == wanted) --balance;
        }
        if (balance > 0) tell({.photo = i, .item = missing});
    }
}

void TellDrawingsWithoutTitle(const IntakeDelivery& delivery, const TellSpot& tell)
{
    TellDrawingsWithout(delivery, "参考図タイトル", "参考図ファイル名", tell);
}

void TellDrawingsWithoutName(const IntakeDelivery& delivery, const TellSpot& tell)
{
    TellDrawingsWithout(delivery, "参考図ファイル名", "参考図タイトル", tell);
}

void TellNoKeyPhoto(const IntakeDelivery& delivery, const TellSpot& tell)
{
    if (!delivery.Has(KeyPhoto)) return;
    bool isWork = false;
    for (const IntakePhoto& photo : delivery.photos) {
        if (photo[KeyPhoto] == "1") return;
        isWork = isWork || IsWork(photo);
    }
    if (isWork) tell({.item = TitleOf(KeyPhoto)});
}

constexpr unsigned all = AllGenerations;
constexpr unsigned since14 = all & ~Generation11;
constexpr unsigned since16 = since14 & ~Generation14;
constexpr unsigned since18 = Generation18 | Generation20;
constexpr unsigned before18 = all & ~since18;
constexpr unsigned notNexco = AllOwners & ~OwnerNexco;
using enum IntakeGrade;
constexpr IntakeNeed nothing = IntakeNeed::Nothing;
constexpr const char* fillIn = "記入してもらう";
constexpr const char* askWhether = "分かるなら記入する項目。要るか受注者に確かめる";

constexpr IntakeRule rules[] = {
    {"serial-missing", Error, all, AllOwners, nothing, "シリアル番号がありません", fillIn,
     Missing<Serial>},
    {"photo-name-missing", Error, all, AllOwners, nothing, "写真ファイル名がありません", fillIn,
     Missing<PhotoName>},
    {"media-missing", Error, since14, AllOwners, nothing, "メディア番号がありません", fillIn,
     Missing<Media>},
    {"class-missing", Error, since14, AllOwners, nothing, "写真-大分類がありません", fillIn,
     Missing<Class>},
    {"class-unknown", Error, since14, AllOwners, nothing, "写真-大分類が要領の語ではありません",
     "工事・測量・調査・地質・広報・設計・その他 のどれかにしてもらう",
     UnknownWords<Class, IsClass>},
    {"category-missing", Warning, since14, AllOwners, nothing,
     "大分類が工事なのに写真区分がありません", "工事写真なら写真区分を記入してもらう",
     Missing<Category, IsWork>},
    {"category-unknown", Warning, since14, notNexco, nothing, "写真区分が要領の語ではありません",
     "要領の写真区分のどれに当たるか受注者に確かめる", UnknownWords<Category, IsCategory>},
    {"category-unknown-nexco", Warning, since14, OwnerNexco, nothing,
     "写真区分がNEXCOの要領の語ではありません", "要領の写真区分のどれに当たるか受注者に確かめる",
     UnknownWords<Category, IsNexcoCategory>},
    {"title-missing", Error, since14, AllOwners, nothing, "写真タイトルがありません", fillIn,
     Missing<Title>},
    {"date-missing", Error, since18, AllOwners, nothing, "撮影年月日がありません",
     "H18.1 からの必須項目。記入してもらう", Missing<Date>},
    {"date-missing-old", Hint, before18, AllOwners, nothing, "撮影年月日がありません", askWhether,
     Missing<Date>},
    {"key-missing", Error, since16, notNexco, nothing, "代表写真がありません",
     "0 か 1 を記入してもらう", Missing<KeyPhoto>},
    {"key-value", Error, since16, notNexco, nothing, "代表写真が 0 でも 1 でもありません",
     "0 か 1 を記入してもらう", UnknownWords<KeyPhoto, IsFlag>},
    {"key-none", Hint, since16, notNexco, nothing, "代表写真が1枚もありません",
     "代表写真の選び忘れがないか確かめる", TellNoKeyPhoto},
    {"frequency-missing", Error, Generation20, notNexco, nothing, "提出頻度写真がありません",
     "0 か 1 を記入してもらう", Missing<Frequency>},
    {"frequency-value", Error, since16, notNexco, nothing, "提出頻度写真が 0 でも 1 でもありません",
     "0 か 1 を記入してもらう", UnknownWords<Frequency, IsFlag>},
    {"work-type-missing", Error, since14, notNexco, nothing,
     "提出頻度写真の品質管理・出来形管理写真に工種がありません", "工種を記入してもらう",
     Missing<WorkType, IsSubmittedResult>},
    {"work-type-wanted", Hint, since14, notNexco, nothing, "提出頻度写真に工種がありません",
     askWhether, Missing<WorkType, WantsWorkType>},
    {"kind-wanted", Hint, since14, notNexco, nothing, "提出頻度写真に種別がありません", askWhether,
     Missing<Kind, WantsKind>},
    {"detail-wanted", Hint, since14, notNexco, nothing, "提出頻度写真に細別がありません",
     askWhether, Missing<Detail, WantsKind>},
    {"work-type-nexco", Hint, since14, OwnerNexco, nothing, "完成写真に工種がありません",
     askWhether, Missing<WorkType, IsFinished>},
    {"place-wanted", Hint, since14, notNexco, nothing, "提出頻度写真に撮影箇所がありません",
     askWhether, Missing<Place, IsSubmittedWork>},
    {"control-value-wanted", Hint, since14, notNexco, nothing,
     "提出頻度写真の出来形管理写真に施工管理値がありません", "寸法が黒板だけで読めるか確かめる",
     Missing<ControlValue, IsMeasured>},
    {"drawing-title-missing", Error, since14, AllOwners, nothing, "参考図タイトルがありません",
     fillIn, TellDrawingsWithoutTitle},
    {"drawing-name-missing", Error, since14, AllOwners, nothing, "参考図ファイル名がありません",
     fillIn, TellDrawingsWithoutName},
};
} // namespace

std::span<const IntakeRule> ItemRules()
{
    return rules;
}
