#include "intake/IntakeRule.h"

#include "platform/files/MibFile.h"

#include <algorithm>
#include <map>
#include <set>

namespace
{
void TellFiles(const IntakeDelivery& delivery,
               const std::function<bool(const NamedFile& file)>& isMeant, const TellSpot& tell)
{
    for (const NamedFile& file : delivery.files) {
        if (isMeant(file)) tell({.photo = file.photo, .item = file.title, .file = file.name});
    }
}

bool IsReachable(const NamedFile& file)
{
    return !file.path.empty();
}

/// Tells the files that are missing from a folder of some disc; without any such folder the rule
/// for that tells it all.
void TellMissing(const IntakeDelivery& delivery, bool isDrawing, IntakeFolder IntakeDisc::*folder,
                 const TellSpot& tell)
{
    const bool hasFolder =
        std::any_of(delivery.discs.begin(), delivery.discs.end(),
                    [folder](const IntakeDisc& disc) { return (disc.*folder).isThere; });
    if (!hasFolder) return;
    TellFiles(
        delivery,
        [isDrawing](const NamedFile& file) {
            return file.isDrawing == isDrawing && file.place == NamedFile::Missing;
        },
        tell);
}

void TellMissingPhotos(const IntakeDelivery& delivery, const TellSpot& tell)
{
    TellMissing(delivery, false, &IntakeDisc::pictures, tell);
}

void TellMissingDrawings(const IntakeDelivery& delivery, const TellSpot& tell)
{
    TellMissing(delivery, true, &IntakeDisc::drawings, tell);
}

void TellAbsentDiscs(const IntakeDelivery& delivery, const TellSpot& tell)
{
    for (const NamedFile& file : delivery.files) {
        const int media = delivery.photos[static_cast<std::size_t>(file.photo)].media;
        if (file.place == NamedFile::OnAbsentDisc)
            tell({.photo = file.photo, .detail = Format("ディスク%d", media)});
    }
}

void TellOtherDisc(const IntakeDelivery& delivery, const TellSpot& tell)
{
    TellFiles(
        delivery, [](const NamedFile& f) { return f.place == NamedFile::OnOtherDisc; }, tell);
}

void TellUnreadable(const IntakeDelivery& delivery, const TellSpot& tell)
{
    TellFiles(
        delivery,
        [](const NamedFile& f) {
            return IsReachable(f) && !f.leadsOutside && f.picture.state == PictureState::Unreadable;
        },
        tell);
}

void TellLeadingOutside(const IntakeDelivery& delivery, const TellSpot& tell)
{
    TellFiles(
        delivery, [](const NamedFile& f) { return f.leadsOutside; }, tell);
}

void TellEmpty(const IntakeDelivery& delivery, const TellSpot& tell)
{
    TellFiles(
        delivery, [](const NamedFile& f) { return f.picture.state == PictureState::Empty; }, tell);
}

void TellCutOff(const IntakeDelivery& delivery, const TellSpot& tell)
{
    TellFiles(
        delivery, [](const NamedFile& f) { return f.picture.state == PictureState::CutOff; }, tell);
}

void TellDamaged(const IntakeDelivery& delivery, const TellSpot& tell)
{
    TellFiles(
        delivery, [](const NamedFile& f) { return f.picture.state == PictureState::Damaged; },
        tell);
}

struct FormRow
{
    const char* ending;
    PictureForm form;
};

constexpr FormRow forms[] = {
    {".jpg", PictureForm::Jpeg},  {".jpeg", PictureForm::Jpeg},  {".tif", PictureForm::Tiff},
    {".tiff", PictureForm::Tiff}, {".svg", PictureForm::Svg},    {".png", PictureForm::Png},
    {".gif", PictureForm::Gif},   {".bmp", PictureForm::Bitmap}, {".pdf", PictureForm::Pdf}};

/// True for a file whose bytes are of another form than its name says, as far as names of that kind
/// are known.
bool IsDisguised(const NamedFile& file)
{
    const PictureState state = file.picture.state;
    if (state == PictureState::Unreadable || state == PictureState::Empty) return false;
    const CString ending = MibGetExt(file.name);
    const auto* const row = std::find_if(std::begin(forms), std::end(forms), [&](const auto& each) {
        return EqualNoCase(ending, each.ending);
    });
    return row != std::end(forms) && row->form != file.picture.form;
}

void TellDisguised(const IntakeDelivery& delivery, const TellSpot& tell)
{
    TellFiles(delivery, IsDisguised, tell);
}

/// Files with one name on several discs.
void TellOnSeveralDiscs(const IntakeDelivery& delivery, const TellSpot& tell)
{
    std::set<CString> seen;
    std::set<CString> told;
    for (const IntakeDisc& disc : delivery.discs) {
        for (const CString& name : disc.pictures.names) {
            const CString folded = FoldCase(name);
            const bool isAgain = !seen.insert(folded).second;
            if (isAgain && told.insert(folded).second) tell({.file = "PHOTO/PIC/" + name});
        }
    }
}

constexpr unsigned all = AllGenerations;
using enum IntakeGrade;
constexpr IntakeNeed Nothing = IntakeNeed::Nothing;
constexpr IntakeNeed Files = IntakeNeed::Files;

constexpr IntakeRule rules[] = {
    {"photo-file-missing", Error, all, AllOwners, Nothing, "写真ファイルがありません",
     "PIC に入れて納め直してもらう", TellMissingPhotos},
    {"drawing-file-missing", Error, all, AllOwners, Nothing, "参考図ファイルがありません",
     "DRA に入れて納め直してもらう", TellMissingDrawings},
    {"disc-absent", Hint, all, AllOwners, Nothing, "写真のある媒体が手元にありません",
     "ほかの媒体も合わせて調べる", TellAbsentDiscs},
    {"disc-other", Warning, all, AllOwners, Nothing,
     "メディア番号と違う媒体に写真ファイルがあります", "メディア番号を直してもらう", TellOtherDisc},
    {"disc-twice", Warning, all, AllOwners, Nothing, "同じ名前の写真ファイルが複数の媒体にあります",
     "どちらが正しいか受注者に確かめる", TellOnSeveralDiscs},
    {"file-unreadable", Error, all, AllOwners, Files, "ファイルを読めません",
     "媒体の傷や読み取りの権限を確かめ、納め直してもらう", TellUnreadable},
    {"file-outside", Error, all, AllOwners, Files, "ファイルが納品データの外を指すリンクです",
     "開かずに、受注者に確かめる", TellLeadingOutside},
    {"file-empty", Error, all, AllOwners, Files, "ファイルの中身がありません（0バイト）",
     "納め直してもらう", TellEmpty},
    {"file-cut-off", Error, all, AllOwners, Files, "写真ファイルが途中で切れています",
     "元のファイルから納め直してもらう", TellCutOff},
    {"file-damaged", Error, all, AllOwners, Files, "写真ファイルが壊れています",
     "元のファイルから納め直してもらう", TellDamaged},
    {"file-disguised", Error, all, AllOwners, Files, "ファイルの中身が拡張子と違う形式です",
     "拡張子どおりの形式で納め直してもらう", TellDisguised},
};
} // namespace

std::span<const IntakeRule> FileRules()
{
    return rules;
}
