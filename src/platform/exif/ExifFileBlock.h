#pragma once

#include "platform/text/Text.h"

/// Where the Exif data of a picture file are, taken out of it.
struct ExifFileBlock
{
    /// The Exif data behind the six bytes that mark them, as they stand in a JPEG file; empty when
    /// there are none. At most 64 KiB, possibly cut off, otherwise unchecked.
    std::string bytes;
    /// The dimensions in the header of a file that has Exif data; 0 when it has no such header.
    int width = 0;
    int height = 0;
};

/// Reads the block of the JPEG or TIFF file \p path. An empty one when it is no such file.
ExifFileBlock ReadExifFileBlock(const CString& path);
