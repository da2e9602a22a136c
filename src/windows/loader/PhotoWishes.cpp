#include "windows/loader/PhotoWishes.h"

#include "delivery/ToviData.h"
#include "items/ToviItemShowSettings.h"
#include "photos/DeliveryFiles.h"
#include "photos/TamperCheck.h"
#include "platform/files/Digest.h"
#include "platform/pictures/ImageFile.h"
#include "platform/pictures/LumPicture.h"
#include "windows/loader/FileLoader.h"
#include "work/RunWorkFile.h"

#include <new>

namespace
{
/// What the facts of a photograph take, about; what says that there is none takes the same.
constexpr std::size_t bytesOfFacts = 8 * 1024;

/// Reads \p What of a file that is readable, into which \p read puts it.
template <class What, class Read>
LoadedPtr ReadFile(const DeliveryFiles& files, const CString& path, const CString& known,
                   const Read& read)
{
    const CString file = files.Readable(path);
    // Before it is read: what changes it meanwhile makes another state of it.
    const CString stamp = file.empty() ? CString() : FileDigest(file);
    if (!known.empty() && known == stamp) return nullptr;
    const auto made = std::make_shared<What>();
    made->stamp = stamp;
    made->bytes = bytesOfFacts;
    try {
        if (!file.empty()) read(file, *made);
        return made;
    } catch (const std::bad_alloc&) {
        return std::make_shared<What>();
    }
}

LoadedPtr ReadPicture(const DeliveryFiles& files, const CString& path, int side,
                      long long mostPixels, const CString& known)
{
    return ReadFile<LoadedPicture>(
        files, path, known, [side, mostPixels](const CString& file, LoadedPicture& picture) {
            QSize wholeSize;
            const QImage image =
                side > 0 ? ReadImage(file, side) : ReadImageUpTo(file, mostPixels, wholeSize);
            if (image.isNull()) return;
            picture.isWhole = image.size() == wholeSize;
            picture.ok = true;
            picture.image = LumPixels::From(image);
            picture.images = ReducedImages(image);
            picture.images.MakeAll(LumImage::thumbSide);
            picture.bytes += picture.images.Bytes();
            if (picture.images.At(1).cacheKey() != image.cacheKey()) {
                picture.bytes += static_cast<std::size_t>(image.sizeInBytes());
            }
        });
}

LoadedPtr ReadFacts(const DeliveryFiles& files, const CString& path, const CString& workFolder,
                    const CString& known)
{
    return ReadFile<LoadedFacts>(files, path, known,
                                 [&workFolder](const CString& file, LoadedFacts& facts) {
                                     ReadPhotoFacts(file, workFolder, facts.facts);
                                     facts.ok = true;
                                 });
}

LoadedPtr DoCheck(const DeliveryFiles& files, const CString& path, TamperCheck& check,
                  const CString& known)
{
    return ReadFile<LoadedCheck>(files, path, known,
                                 [&check](const CString& file, LoadedCheck& checked) {
                                     checked.result = check.Check(file);
                                     checked.ok = true;
                                 });
}

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
    return Picture(photo, LumImage::thumbSide, urgency);
}

LoadWish PhotoWishes::Full(ToviPhoto& photo, Urgency urgency) const
{
    return Picture(photo, 0, urgency);
}

LoadWish PhotoWishes::Picture(ToviPhoto& photo, int side, Urgency urgency) const
{
    const CString path = photo.GetImagePath();
    const long long mostPixels = FileLoader::Ours().MostPixels();
    return {{files, path, LoadKind::Picture, side},
            urgency,
            [from = files, path, side, mostPixels](const CString& known) {
                return ReadPicture(*from, path, side, mostPixels, known);
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
                return ReadFacts(*from, path, folder, known);
            }};
}

std::optional<LoadWish> PhotoWishes::Check(ToviPhoto& photo, Urgency urgency) const
{
    if (!check) return std::nullopt;
    const CString path = photo.GetImagePath();
    return LoadWish{{check, path, LoadKind::Check},
                    urgency,
                    [from = files, path, by = check](const CString& known) {
                        return DoCheck(*from, path, *by, known);
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
