#include "windows/loader/LoadedFiles.h"

#include "photos/DeliveryFiles.h"
#include "photos/TamperCheck.h"
#include "platform/files/Digest.h"
#include "platform/files/MibFile.h"
#include "platform/pictures/ImageFile.h"
#include "platform/pictures/ImageSource.h"
#include "platform/pictures/LumPicture.h"
#include "platform/pictures/TiffSheets.h"

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
    if (!file.empty()) {
        made->file = FileState::Readable;
    } else if (MibIsFileExist(path)) {
        made->file = FileState::Outside;
    }
    made->stamp = stamp;
    made->bytes = bytesOfFacts;
    try {
        if (!file.empty()) read(file, *made);
        return made;
    } catch (const std::bad_alloc&) {
        const auto failed = std::make_shared<What>();
        failed->file = FileState::Readable;
        return failed;
    }
}

void Take(const FilePicture& from, LoadedPicture& to)
{
    to.faultInside = from.fault;
    if (from.image.isNull()) return;
    to.ok = true;
    to.wholeSize = from.wholeSize;
    to.image = LumPixels::From(from.image);
    to.images = ReducedImages(from.image, from.wholeSize);
    to.images.MakeAll(LumImage::thumbSide);
    to.bytes += to.images.Bytes();
    if (to.images.At(1).cacheKey() != from.image.cacheKey()) {
        to.bytes += static_cast<std::size_t>(from.image.sizeInBytes());
    }
}

/// One of a TIFF file with several.
FilePicture ReadSheet(const CString& path, int sheet, qint64 mostPixels)
{
    const QImage whole = LumPixels::Of(ReadTiffSheet(path, sheet));
    return ReducePicture(whole, {.mostPixels = mostPixels});
}
} // namespace

PictureFault LoadedPicture::Fault() const
{
    switch (file) {
    case FileState::Missing:
        return PictureFault::Missing;
    case FileState::Outside:
        return PictureFault::Outside;
    case FileState::Readable:
        break;
    }
    const bool isUnknown = !ok && faultInside == PictureFault::None;
    return isUnknown ? PictureFault::TooLarge : faultInside;
}

LoadedPtr LoadPicture(const DeliveryFiles& files, const CString& path, const PictureBounds& bounds,
                      const CString& known)
{
    return ReadFile<LoadedPicture>(files, path, known,
                                   [&bounds](const CString& file, LoadedPicture& picture) {
                                       Take(ReadPicture(file, bounds), picture);
                                   });
}

LoadedPtr LoadPart(const DeliveryFiles& files, const CString& path, const QRect& part, int side,
                   const CString& known)
{
    return ReadFile<LoadedPart>(files, path, known, [&](const CString& file, LoadedPart& loaded) {
        loaded.place = part;
        loaded.image = ImageSource::FromFile(file).ReadPart(loaded.place, {side, side});
        loaded.ok = !loaded.image.isNull();
        loaded.bytes += static_cast<std::size_t>(loaded.image.sizeInBytes());
    });
}

LoadedPtr LoadDrawing(const DeliveryFiles& files, const CString& path, int sheet,
                      long long mostPixels, const CString& known)
{
    return ReadFile<LoadedDrawing>(
        files, path, known, [&](const CString& file, LoadedDrawing& drawing) {
            const FilePicture read = sheet > 0 ? ReadSheet(file, sheet, mostPixels)
                                               : ReadPicture(file, {.mostPixels = mostPixels});
            drawing.isFromMono = read.image.format() == QImage::Format_Mono ||
                                 read.image.format() == QImage::Format_MonoLSB;
            drawing.sheets = CountTiffSheets(file);
            Take(read, drawing);
        });
}

LoadedPtr LoadFacts(const DeliveryFiles& files, const CString& path, const CString& workFolder,
                    const CString& known)
{
    return ReadFile<LoadedFacts>(files, path, known,
                                 [&workFolder](const CString& file, LoadedFacts& facts) {
                                     ReadPhotoFacts(file, workFolder, facts.facts);
                                     facts.ok = true;
                                 });
}

LoadedPtr LoadCheck(const DeliveryFiles& files, const CString& path, TamperCheck& check,
                    const CString& known)
{
    return ReadFile<LoadedCheck>(files, path, known,
                                 [&check](const CString& file, LoadedCheck& checked) {
                                     checked.result = check.Check(file);
                                     checked.ok = true;
                                 });
}
