#pragma once

#include "platform/text/Text.h"
#include "sample/SampleRandom.h"

#include <chrono>
#include <optional>

struct GeoPosition
{
    double latitude;
    double longitude;
    double altitude;
};

/// What a camera writes about a picture.
struct SampleShot
{
    /// The camera's clock.
    std::chrono::sys_seconds takenAt;
    std::string_view maker;
    std::string_view model;
    /// The size of the stored picture and how it has to be turned, as Exif counts.
    int width;
    int height;
    int orientation = 1;
    /// The exposure is 1/shutter s at the f-number aperture/10.
    int shutter;
    int aperture;
    double exposureBias;
    bool flash;
    std::optional<GeoPosition> position;
};

/// A shot at \p takenAt with a camera and its settings drawn from \p random; size and orientation
/// are left to the caller.
SampleShot MakeSampleShot(SampleRandom& random, std::chrono::sys_seconds takenAt);

/// The JPEG file \p jpeg with the Exif data of \p shot, right behind its start marker.
std::string WithExif(const std::string& jpeg, const SampleShot& shot);
