#include "windows/loader/SmallPicture.h"

#include "delivery/ToviData.h"
#include "platform/pictures/LumPicture.h"
#include "windows/loader/FileLoader.h"
#include "windows/loader/LoadedFiles.h"
#include "windows/loader/PhotoWishes.h"

QImage SmallPictureOf(ToviData& document, const QSize& room)
{
    ToviPhoto* const selected = document.GetSelectedPhoto();
    ToviPhoto* const photo = selected != nullptr ? selected : document.GetPhoto(0);
    if (photo == nullptr) return {};
    const LoadKey key = PhotoWishes(document).Thumb(*photo).key;
    const auto loaded = FileLoader::Ours().InHand<LoadedPicture>(key);
    if (!loaded || !loaded->image.IsValid()) return {};
    return LumPixels::Of(loaded->image).scaled(room, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}
