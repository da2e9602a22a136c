#pragma once

#include "platform/exif/ExifFileBlock.h"
#include "platform/exif/ExifFileSource.h"

/// What stands in front of the Exif data in a JPEG file.
inline constexpr std::string_view exifMark("Exif\0\0", 6);

/// True when a file that starts with these four bytes is a TIFF file.
bool IsTiffStart(const std::string& start);

/// The Exif data of the TIFF file \p file as a block of their own, with the size of its picture.
/// Directories and their values lie anywhere among the pixels, far beyond the 64 KiB that Exif data
/// may have. Of its directories only the first is taken, with the Exif and GPS directories that it
/// points to; values too long for a fact about a photograph are left out. Empty when it
/// points to neither.
ExifFileBlock GatherTiffExif(const ExifFileSource& file);
