#include "windows/loader/PhotoWishes.h"

#include "delivery/ToviData.h"
#include "items/ToviItemShowSettings.h"
#include "platform/pictures/ImageFile.h"
#include "windows/loader/FileLoader.h"
#include "work/RunWorkFile.h"

namespace
{
/// Windows of about the same size share what is sharp in them.
constexpr int screenStep = 256;
/// So small a picture is decoded whole at once.
constexpr qint64 fewPixels = 2'000'000;
/// One drawing is on show at a time.
constexpr int picturesOfADrawing = 2;

LoadKey FactsKey(ToviData& document, ToviPhoto& photo)
{
    return {document.GetFiles(), photo.GetImagePath(), LoadKind::Facts};
}
} // namespace

PhotoWishes::PhotoWishes(ToviData& document)
    : files(document.GetFiles()), check(document.GetTamperCheck())
{}

LoadWish PhotoWishes::Thumb(ToviPhoto& photo, Urgency urgency) const
{
    return Picture(photo, LumImage::thumbSide, {.longestSide = LumImage::thumbSide}, urgency);
}

LoadWish PhotoWishes::Full(ToviPhoto& photo, Urgency urgency) const
{
    return Picture(photo, 0, {.mostPixels = FileLoader::Ours().MostPixels()}, urgency);
}

LoadWish PhotoWishes::Screen(ToviPhoto& photo, int side, Urgency urgency) const
{
    // How large a drawing is shows when it is drawn, which takes the same time at any size.
    if (ToviExifInfo::IsSvg(photo.GetImagePath())) return Full(photo, urgency);
    const int rounded = (side / screenStep + 1) * screenStep;
    return Picture(photo, rounded, {.longestSide = rounded, .fewPixels = fewPixels}, urgency);
}

LoadWish PhotoWishes::Picture(ToviPhoto& photo, int side, const PictureBounds& bounds,
                              Urgency urgency) const
{
    const CString path = photo.GetImagePath();
    return {{files, path, LoadKind::Picture, side},
            urgency,
            [from = files, path, bounds](const CString& known) {
                return LoadPicture(*from, path, bounds, known);
            }};
}

LoadWish PhotoWishes::Part(ToviPhoto& photo, const QRect& part, int side) const
{
    const CString path = photo.GetImagePath();
    return {{.place = files, .path = path, .kind = LoadKind::Part, .side = side, .part = part},
            Urgency::Visible,
            [from = files, path, part, side](const CString& known) {
                return LoadPart(*from, path, part, side, known);
            }};
}

LoadWish PhotoWishes::Drawing(const CString& path, int sheet) const
{
    const long long mostPixels = picturesOfADrawing * FileLoader::Ours().MostPixels();
    return {{.place = files, .path = path, .kind = LoadKind::Drawing, .sheet = sheet},
            Urgency::Visible,
            [from = files, path, sheet, mostPixels](const CString& known) {
                return LoadDrawing(*from, path, sheet, mostPixels, known);
            }};
}

LoadWish PhotoWishes::Facts(ToviPhoto& photo, Urgency urgency) const
{
    const CString path = photo.GetImagePath();
    // It is asked for here: not every thread may.
    if (!workFolder && ToviExifInfo::IsSvg(path)) workFolder = RunWorkFolder();
    return {{files, path, LoadKind::Facts},
            urgency,
            [from = files, path, folder = workFolder.value_or("")](const CString& known) {
                return LoadFacts(*from, path, folder, known);
            }};
}

std::optional<LoadWish> PhotoWishes::Check(ToviPhoto& photo, Urgency urgency) const
{
    if (!check) return std::nullopt;
    const CString path = photo.GetImagePath();
    return LoadWish{{check, path, LoadKind::Check},
                    urgency,
                    [from = files, path, by = check](const CString& known) {
                        return LoadCheck(*from, path, *by, known);
                    }};
}

CString ShownFact(ToviData& document, ToviPhoto& photo, const ToviItemShowSetting& setting)
{
    const auto read = FileLoader::Ours().InHand<LoadedFacts>(FactsKey(document, photo));
    if (!read) return notReadYet;
    return setting.infoType == InfoFile ? read->facts.OfFile(setting.title)
                                        : read->facts.OfExif(setting.title);
}

void GetShownPairs(ToviData& document, ToviPhoto& photo, const ToviItemShowSettings& settings,
                   ToviTextPairArray& pairs)
{
    photo.GetTextPairs(
        document.GetItemDef(), settings, pairs,
        [&](const ToviItemShowSetting& setting) { return ShownFact(document, photo, setting); });
}

bool TakeCheckInHand(ToviData& document, ToviPhoto& photo)
{
    const std::shared_ptr<TamperCheck> check = document.GetTamperCheck();
    if (!check) return true;
    const auto checked =
        FileLoader::Ours().InHand<LoadedCheck>({check, photo.GetImagePath(), LoadKind::Check});
    if (!checked) return false;
    photo.SetEditChkResult(checked->result);
    return true;
}
