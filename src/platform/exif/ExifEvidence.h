#pragma once

#include "platform/text/Text.h"

#include <optional>

/// What Exif data tell of how a picture file came to be, as it was written: times of clocks that
/// were never set, too.
struct ExifEvidence
{
    /// There are Exif data.
    bool isThere = false;
    /// "2024:05:01 10:20:30", or whatever else stands there, without blanks at its ends; empty
    /// where there is nothing.
    CString original;
    CString digitized;
    CString changed;
    /// Date and time of the satellites in the same form, which is that of UTC.
    CString gps;
    CString maker;
    CString model;
    CString software;
    /// The dimensions that the Exif data tell of the picture.
    std::optional<unsigned> width;
    std::optional<unsigned> height;
};

/// The evidence in the JPEG or TIFF file \p path. Any thread may call it.
ExifEvidence ReadExifEvidence(const CString& path);
