#pragma once

#include "intake/IntakeDelivery.h"
#include "intake/PictureLikeness.h"

/// Photographs of which there is more than one: facts, with both to be looked at side by side.

/// What is compared of one photograph.
struct PhotoMarks
{
    int photo = 0;
    CString name;
    /// Where its file is, or was when it was put into the register.
    CString path;
    Sha256 digest{};
    /// Nothing where there is no picture that can be decoded.
    std::optional<PictureMarks> picture;
    PictureSize size;
    /// Exif's time with the camera behind it; empty without one, or from a clock that was never
    /// set.
    CString moment;
};

/// The marks of an earlier delivery.
struct EarlierDelivery
{
    /// In the register.
    std::int64_t id = 0;
    CString name;
    std::vector<PhotoMarks> photos;
};

struct PhotoPair
{
    enum Kind
    {
        Bytes,
        Picture,
        Moment
    };
    Kind kind = Bytes;
    /// A photo index, and another one or that of the earlier delivery.
    int photo = 0;
    int other = 0;
    /// The other one's delivery; null for this one.
    const EarlierDelivery* earlier = nullptr;
    /// How many of 64 bits the hashes of the pictures differ in.
    int distance = 0;
};

/// Reads the marks of all photographs whose files are there, each file once, on all cores. \p tell
/// hears how many are done; false from it ends the work with nothing.
TOVI_EXPORT std::vector<PhotoMarks>
ReadPhotoMarks(const IntakeDelivery& delivery, const std::function<bool(int done, int all)>& tell);

/// The pairs among \p marks, and of them with those of \p earlier, in the order of their
/// photographs. Pictures are told as the same only when their pixels are, which are read anew where
/// both files are at hand. Of more than two photographs with one file or one moment each is paired
/// with the first. \p tell as above.
TOVI_EXPORT std::vector<PhotoPair> FindDoubles(const std::vector<PhotoMarks>& marks,
                                               const std::vector<EarlierDelivery>& earlier,
                                               const std::function<bool(int done, int all)>& tell);
