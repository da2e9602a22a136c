#include "intake/IntakeRule.h"

#include <algorithm>

namespace
{
constexpr int ourEdition = 201603;

const NamedFile* AsPhotograph(const NamedFile& file)
{
    const bool hasSize = file.picture.width > 0 && file.picture.height > 0;
    return !file.isDrawing && hasSize ? &file : nullptr;
}

void TellPhotographs(const IntakeDelivery& delivery,
                     const std::function<bool(const NamedFile& file)>& isMeant,
                     const TellSpot& tell)
{
    for (const NamedFile& file : delivery.files) {
        if (AsPhotograph(file) != nullptr && isMeant(file)) tell({.photo = file.photo});
    }
}

std::int64_t PixelsOf(const NamedFile& file)
{
    return std::int64_t{file.picture.width} * file.picture.height;
}

void TellFewPixels(const IntakeDelivery& delivery, const TellSpot& tell)
{
    constexpr std::int64_t fewest = 1'000'000;
    TellPhotographs(
        delivery, [](const NamedFile& file) { return PixelsOf(file) < fewest; }, tell);
}

/// The guide value has had an upper end since March 2016. Its own example, 2000×1500, is 3 million.
void TellManyPixels(const IntakeDelivery& delivery, const TellSpot& tell)
{
    constexpr std::int64_t most = 3'200'000;
    if (delivery.standardMonth < ourEdition) return;
    TellPhotographs(
        delivery, [](const NamedFile& file) { return PixelsOf(file) > most; }, tell);
}

/// NEXCO's editions from July 2012 on set a bound in bytes, those from July 2016 on one in pixels.
constexpr int firstWithBytes = 201207;
constexpr int firstWithPixels = 201607;

void TellLargeFiles(const IntakeDelivery& delivery, const TellSpot& tell)
{
    constexpr std::uint64_t most = 500 * 1024;
    const int month = delivery.standardMonth;
    if (month < firstWithBytes || month >= firstWithPixels) return;
    TellPhotographs(
        delivery, [](const NamedFile& file) { return file.picture.bytes > most; }, tell);
}

void TellLargePictures(const IntakeDelivery& delivery, const TellSpot& tell)
{
    constexpr int longer = 1280;
    constexpr int shorter = 960;
    if (delivery.standardMonth < firstWithPixels) return;
    TellPhotographs(
        delivery,
        [](const NamedFile& file) {
            const auto [low, high] = std::minmax(file.picture.width, file.picture.height);
            return high > longer || low > shorter;
        },
        tell);
}

/// Programs that change pictures, as they write themselves into Exif data.
constexpr const char* editors[] = {"photoshop", "gimp",        "lightroom",   "paint",
                                   "picasa",    "acdsee",      "imagemagick", "snapseed",
                                   "affinity",  "capture one", "irfanview",   "windows photo",
                                   "silkypix",  "photofiltre", "pixlr"};

void TellEditors(const IntakeDelivery& delivery, const TellSpot& tell)
{
    for (const NamedFile& file : delivery.files) {
        const CString software = FoldCase(file.exif.software);
        const bool isEditor =
            std::any_of(std::begin(editors), std::end(editors),
                        [&](const char* editor) { return software.find(editor) != CString::npos; });
        if (!file.isDrawing && isEditor) tell({.photo = file.photo, .detail = file.exif.software});
    }
}

/// A picture that lies on its side may have been told standing.
bool HasOtherSize(const NamedFile& file)
{
    if (!file.exif.width || !file.exif.height) return false;
    const auto told = std::minmax(*file.exif.width, *file.exif.height);
    const auto width = static_cast<unsigned>(file.picture.width);
    const auto height = static_cast<unsigned>(file.picture.height);
    return told != std::minmax(width, height) && *file.exif.width != 0 && *file.exif.height != 0;
}

void TellOtherSize(const IntakeDelivery& delivery, const TellSpot& tell)
{
    TellPhotographs(delivery, HasOtherSize, tell);
}

bool IsWithoutExif(const NamedFile& file)
{
    return !file.exif.isThere && file.picture.form != PictureForm::Svg;
}

/// Photographs without Exif data where four in five have them.
void TellMissingExif(const IntakeDelivery& delivery, const TellSpot& tell)
{
    int with = 0;
    int without = 0;
    for (const NamedFile& file : delivery.files) {
        if (AsPhotograph(file) == nullptr) continue;
        if (file.exif.isThere) ++with;
        if (IsWithoutExif(file)) ++without;
    }
    if (with >= 4 * without) TellPhotographs(delivery, IsWithoutExif, tell);
}

constexpr unsigned all = AllGenerations;
constexpr unsigned notNexco = AllOwners & ~OwnerNexco;
using enum IntakeGrade;
constexpr IntakeNeed files = IntakeNeed::Files;

constexpr IntakeRule rules[] = {
    {"pixels-few", Hint, all, AllOwners, files, "画素数が目安の100万画素より少ない写真です",
     "黒板と対象が読めるか見て確かめる", TellFewPixels},
    {"pixels-many", Hint, all, notNexco, files, "画素数が目安の300万画素より多い写真です",
     "目安であり誤りではない", TellManyPixels},
    {"bytes-nexco", Error, all, OwnerNexco, files, "写真ファイルが500KBを超えています",
     "NEXCOの要領（H24.7）の大きさで納め直してもらう", TellLargeFiles},
    {"pixels-nexco", Error, all, OwnerNexco, files, "写真が1280×960を超えています",
     "NEXCOの要領（H28.7から）の大きさで納め直してもらう", TellLargePictures},
    {"edit-software", Hint, all, AllOwners, files, "画像を編集するソフトの名前がExifにあります",
     "編集した写真か受注者に確かめる", TellEditors},
    {"edit-dimensions", Hint, all, AllOwners, files, "Exifの画素数が写真の画素数と違います",
     "大きさを変えた写真か受注者に確かめる", TellOtherSize},
    {"edit-exif-missing", Hint, all, AllOwners, files,
     "ほかの写真にあるExifがこの写真にはありません", "別の経路で作られた写真か確かめる",
     TellMissingExif},
};
} // namespace

std::span<const IntakeRule> PictureRules()
{
    return rules;
}
