#pragma once

#include "platform/text/Text.h"

#include <array>
#include <optional>

/// The facts that a picture file tells about its making: fields of its Exif data, and its size.
/// Each has the title of an Exif field in its name; the numbers between them belong to no fact.
enum LumCMNT
{
    LumCmntArtist = 0,
    LumCmntCopyright = 1,
    LumCmntDateTime = 2,
    LumCmntMake = 5,
    LumCmntModel = 6,
    LumCmntSoftware = 9,
    LumCmntExifVersion = 10,
    LumCmntDateTimeOriginal = 11,
    LumCmntDateTimeDigitized = 12,
    LumCmntShutterSpeed = 13,
    LumCmntAperture = 14,
    LumCmntExposureBias = 16,
    LumCmntMaxAperture = 17,
    LumCmntMeteringMode = 19,
    LumCmntFlash = 21,
    LumCmntFocalLength = 22,
    LumCmntExposureTime = 23,
    LumCmntFNumber = 24,
    LumCmntGpsLatitude = 28,
    LumCmntGpsLongitude = 29,
    LumCmntGpsAltitude = 30,
    LumCmntImageSize = 31,
    LumCmntTotalPixels = 32,
    LumCmntCount
};

/// The texts of one file by their LumCMNT; nothing where the file has no such field.
using LumComments = std::array<std::optional<CString>, LumCmntCount>;
