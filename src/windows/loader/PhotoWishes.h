#pragma once

#include "imagefacts/PhotoFacts.h"
#include "photos/ToviPhoto.h"
#include "platform/pictures/ReducedImages.h"
#include "windows/loader/LoadKey.h"

#include <optional>

class DeliveryFiles;
class TamperCheck;
class ToviData;

/// A picture, ready to be drawn.
struct LoadedPicture : Loaded
{
    LumImage image;
    /// The same with its reduced copies.
    ReducedImages images;
    /// It is as large as in the file.
    bool isWhole = false;
};

struct LoadedFacts : Loaded
{
    PhotoFacts facts;
};

struct LoadedCheck : Loaded
{
    ToviPhoto::EditJPEGCheckResult result = ToviPhoto::EditCheckUnknown;
};

/// What windows want of the photographs of a document, as it is now.
class TOVI_EXPORT PhotoWishes
{
public:
    explicit PhotoWishes(ToviData& document);

    /// A LoadedPicture of LumImage::thumbSide pixels.
    LoadWish Thumb(ToviPhoto& photo, Urgency urgency = Urgency::Visible) const;
    /// A LoadedPicture, whole unless it is so large that a page of them wouldn't fit.
    LoadWish Full(ToviPhoto& photo, Urgency urgency = Urgency::Visible) const;
    /// A LoadedFacts.
    LoadWish Facts(ToviPhoto& photo, Urgency urgency = Urgency::Visible) const;
    /// A LoadedCheck; nothing where no check is asked for.
    std::optional<LoadWish> Check(ToviPhoto& photo, Urgency urgency = Urgency::Visible) const;

private:
    LoadWish Picture(ToviPhoto& photo, int side, Urgency urgency) const;

    std::shared_ptr<const DeliveryFiles> files;
    std::shared_ptr<TamperCheck> check;
    /// Where work files stand, once it was asked for.
    mutable std::optional<CString> workFolder;
};

/// What stands for a fact that isn't read yet.
inline constexpr const char* notReadYet = "…";

/// The texts of \p photo for the items of \p settings, with the facts of its file as far as they
/// are in hand.
TOVI_EXPORT void GetShownPairs(ToviData& document, ToviPhoto& photo,
                               const ToviItemShowSettings& settings, ToviTextPairArray& pairs);
/// The fact of the item \p setting, of the file or of Exif.
TOVI_EXPORT CString ShownFact(ToviData& document, ToviPhoto& photo,
                              const ToviItemShowSetting& setting);
/// Notes the result of the check on \p photo, if one is in hand. False while it isn't.
TOVI_EXPORT bool TakeCheckInHand(ToviData& document, ToviPhoto& photo);
