#pragma once

#include "windows/loader/LoadedFiles.h"

#include <optional>

class ToviData;

/// What windows want of the photographs of a document, as it is now.
class TOVI_EXPORT PhotoWishes
{
public:
    explicit PhotoWishes(ToviData& document);

    /// A LoadedPicture of LumImage::thumbSide pixels.
    LoadWish Thumb(ToviPhoto& photo, Urgency urgency = Urgency::Visible) const;
    /// A LoadedPicture, whole unless it is so large that a page of them wouldn't fit.
    LoadWish Full(ToviPhoto& photo, Urgency urgency = Urgency::Visible) const;
    /// A LoadedPicture that is sharp in a window of \p side device pixels; whole if that takes
    /// hardly longer.
    LoadWish Screen(ToviPhoto& photo, int side, Urgency urgency = Urgency::Visible) const;
    /// A LoadedPart: \p part of the picture, sharp in such a window.
    LoadWish Part(ToviPhoto& photo, const QRect& part, int side) const;
    /// A LoadedDrawing: the \p sheet (from 0) of the reference drawing \p path.
    LoadWish Drawing(const CString& path, int sheet) const;
    /// A LoadedFacts.
    LoadWish Facts(ToviPhoto& photo, Urgency urgency = Urgency::Visible) const;
    /// A LoadedCheck; nothing where no check is asked for.
    std::optional<LoadWish> Check(ToviPhoto& photo, Urgency urgency = Urgency::Visible) const;

private:
    LoadWish Picture(ToviPhoto& photo, int side, const PictureBounds& bounds,
                     Urgency urgency) const;

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
