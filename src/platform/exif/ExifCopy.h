#pragma once

#include "platform/text/Text.h"

/// The Exif data \p block of a photograph (see ExifFileBlock) for a copy of it that was turned or
/// otherwise worked over and has \p width × \p height pixels: the orientation is 1, the dimensions
/// are the copy's, and the preview, which still shows the original, is gone. All else stands as it
/// stood, byte for byte. Empty when \p block is no Exif data.
std::string ExifOfCopy(std::string block, int width, int height);

/// The JPEG file \p jpeg with \p block as its Exif data; as it is when \p block is empty or too
/// long for a segment.
std::string WithExif(const std::string& jpeg, const std::string& block);
