#include "intake/IntakeRule.h"

#include "loading/DeliveryLocation.h"
#include "platform/files/MibFile.h"

#include <algorithm>
#include <set>

namespace
{
using TellIndex = void (*)(const IntakeDelivery& delivery, const IntakeIndex& index,
                           const TellSpot& tell);

template <TellIndex look>
void Each(const IntakeDelivery& delivery, const TellSpot& tell)
{
    for (const IntakeIndex& index : delivery.indexes) {
        if (index.isReadable) look(delivery, index, tell);
    }
}

void TellMissing(const IntakeDelivery& delivery, const TellSpot& tell)
{
    if (delivery.indexes.empty()) tell({.file = "INDEX_C.XML"});
}

void TellUnreadable(const IntakeDelivery& delivery, const TellSpot& tell)
{
    for (const IntakeIndex& index : delivery.indexes) {
        if (!index.isReadable) tell({.file = index.name});
    }
}

void TellMissingDtd(const IntakeDelivery& delivery, const IntakeIndex& index, const TellSpot& tell)
{
    const bool isThere = delivery.discs[index.disc].top.Find(index.dtd) != nullptr;
    if (!index.dtd.empty() && !isThere) tell({.file = index.dtd});
}

void TellPhotoFolder(const IntakeDelivery&, const IntakeIndex& index, const TellSpot& tell)
{
    if (!index.photoFolder.empty() && index.photoFolder != "PHOTO")
        tell({.item = "写真フォルダ名", .file = index.name, .detail = index.photoFolder});
}

void TellNoPhotoFolder(const IntakeDelivery&, const IntakeIndex& index, const TellSpot& tell)
{
    if (index.photoFolder.empty()) tell({.item = "写真フォルダ名", .file = index.name});
}

void TellNoTitle(const IntakeDelivery&, const IntakeIndex& index, const TellSpot& tell)
{
    if (index.workTitle.empty()) tell({.file = index.name});
}

void TellNoPeriod(const IntakeDelivery&, const IntakeIndex& index, const TellSpot& tell)
{
    if (index.firstDay.empty() || index.lastDay.empty()) tell({.file = index.name});
}

void TellPeriodForm(const IntakeDelivery&, const IntakeIndex& index, const TellSpot& tell)
{
    for (const CString& day : {index.firstDay, index.lastDay}) {
        if (!day.empty() && !DayOf(day)) tell({.file = index.name, .detail = day});
    }
}

void TellPeriodOrder(const IntakeDelivery&, const IntakeIndex& index, const TellSpot& tell)
{
    const std::optional<Day> first = DayOf(index.firstDay);
    const std::optional<Day> last = DayOf(index.lastDay);
    if (first && last && *first > *last)
        tell({.file = index.name, .detail = index.firstDay + "～" + index.lastDay});
}

void TellMediaNumber(const IntakeDelivery&, const IntakeIndex& index, const TellSpot& tell)
{
    const bool isBeyond =
        index.mediaNumber && index.mediaCount && *index.mediaNumber > *index.mediaCount;
    if (isBeyond) {
        tell({.item = "メディア番号",
              .file = index.name,
              .detail = Format("%d / %d", *index.mediaNumber, *index.mediaCount)});
    }
}

/// 0 stands for what was delivered without any medium.
void TellMediaBeyond(const IntakeDelivery& delivery, const TellSpot& tell)
{
    const int count = delivery.MediaCount();
    for (int i = 0; i < delivery.Count() && count > 0; ++i) {
        const int media = delivery.photos[static_cast<std::size_t>(i)].media;
        if (media > count) {
            tell({.photo = i,
                  .item = TitleOf(IntakeItem::Media),
                  .detail = Format("%d / %d", media, count)});
        }
    }
}

void TellMixedZero(const IntakeDelivery& delivery, const TellSpot& tell)
{
    std::set<int> media;
    for (const IntakePhoto& photo : delivery.photos) media.insert(photo.media);
    if (!media.contains(0) || media.size() == 1) return;
    for (int i = 0; i < delivery.Count(); ++i) {
        if (delivery.photos[static_cast<std::size_t>(i)].media == 0)
            tell({.photo = i, .item = TitleOf(IntakeItem::Media)});
    }
}

void TellDiscNumber(const IntakeDelivery& delivery, const IntakeIndex& index, const TellSpot& tell)
{
    const int number = delivery.discs[index.disc].number;
    const bool isOther =
        index.mediaNumber && *index.mediaNumber > 0 && number > 0 && *index.mediaNumber != number;
    if (isOther) {
        tell({.item = "メディア番号",
              .file = Format("DISK%d/", number) + index.name,
              .detail = std::to_string(*index.mediaNumber)});
    }
}

void TellDifferentIndexes(const IntakeDelivery& delivery, const TellSpot& tell)
{
    for (const IntakeIndex& index : delivery.indexes) {
        const IntakeIndex& first = delivery.indexes.front();
        const bool isOther = index.workTitle != first.workTitle ||
                             index.firstDay != first.firstDay || index.lastDay != first.lastDay;
        if (isOther) {
            tell({.file = Format("DISK%d/", delivery.discs[index.disc].number) + index.name});
        }
    }
}

/// Folders DISKn beside this one whose PHOTO.XML has other bytes.
void TellOtherPhotoXml(const IntakeDelivery& delivery, const TellSpot& tell)
{
    CString wrapper = delivery.discs.front().root;
    CString above = wrapper;
    MibParentDir(above);
    wrapper.pop_back();
    if (!FoldCase(MibGetFileName(wrapper)).starts_with("disk")) return;
    for (const CString& beside : MibFileFind(above, "DISK?")) {
        const CString xml = beside + "/PHOTO/PHOTO.XML";
        const bool isOurs =
            std::any_of(delivery.discs.begin(), delivery.discs.end(), [&](const IntakeDisc& disc) {
                return EqualNoCase(disc.root, beside + "/");
            });
        if (!isOurs && MibIsFileExist(xml)) tell({.file = MibGetFileName(beside)});
    }
}

constexpr unsigned all = AllGenerations;
using enum IntakeGrade;
using enum IntakeNeed;
constexpr const char* fix = "受注者に確かめ、直してもらう";

constexpr IntakeRule rules[] = {
    {"index-missing", Hint, all, AllOwners, Nothing,
     "索引ファイル（INDEX_C.XML など）が PHOTO の隣にありません",
     "工期などを使う検査はできない。写真だけを受け取ったのか確かめる", TellMissing},
    {"index-unreadable", Error, all, AllOwners, Nothing, "索引ファイルを読めません",
     "作り直して納めてもらう", TellUnreadable},
    {"index-dtd-missing", Warning, all, AllOwners, Index,
     "索引ファイルが名指すDTDファイルがありません", "要領のDTDを入れてもらう",
     Each<TellMissingDtd>},
    {"index-photo-folder", Warning, all, AllOwners, Index,
     "索引ファイルの写真フォルダ名が PHOTO ではありません", fix, Each<TellPhotoFolder>},
    {"index-photo-folder-missing", Hint, all, AllOwners, Index,
     "索引ファイルに写真フォルダ名がありません", fix, Each<TellNoPhotoFolder>},
    {"index-title-missing", Warning, all, AllOwners, Index,
     "索引ファイルに工事名称・業務名称がありません", fix, Each<TellNoTitle>},
    {"index-period-missing", Hint, all, AllOwners, Index, "索引ファイルに工期がありません",
     "工期と比べる検査はできない", Each<TellNoPeriod>},
    {"index-period-form", Warning, all, AllOwners, Index,
     "索引ファイルの工期が CCYY-MM-DD の日ではありません", fix, Each<TellPeriodForm>},
    {"index-period-order", Warning, all, AllOwners, Index,
     "索引ファイルの工期の終わりが始まりより前です", fix, Each<TellPeriodOrder>},
    {"index-media-number", Warning, all, AllOwners, Index,
     "索引ファイルのメディア番号が総枚数を超えています", fix, Each<TellMediaNumber>},
    {"media-beyond", Warning, all, AllOwners, Index,
     "写真のメディア番号が索引ファイルの総枚数を超えています", fix, TellMediaBeyond},
    {"media-mixed-zero", Warning, all, AllOwners, Nothing,
     "メディア番号0（オンライン納品）の写真がほかの番号と混ざっています", fix, TellMixedZero},
    {"disc-number", Warning, all, AllOwners, Index,
     "索引ファイルのメディア番号が媒体のフォルダの番号と違います", fix, Each<TellDiscNumber>},
    {"disc-index-differs", Warning, all, AllOwners, Nothing,
     "索引ファイルの工事名称か工期が媒体によって違います", fix, TellDifferentIndexes},
    {"disc-other-xml", Warning, all, AllOwners, Nothing,
     "隣の媒体の PHOTO.XML がこの媒体と違います",
     "同じ工事の媒体なら、すべてに同じ PHOTO.XML を入れてもらう", TellOtherPhotoXml},
};
} // namespace

std::span<const IntakeRule> IndexRules()
{
    return rules;
}
