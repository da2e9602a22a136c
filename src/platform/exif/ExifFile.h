#pragma once

#include "platform/exif/ExifFileBlock.h"
#include "platform/exif/ExifFileValues.h"
#include "platform/exif/LumCMNT.h"

/// One picture file, opened once for all that its Exif data tell. Only the head that holds them is
/// read. Nothing in a file is trusted: what is cut off, of a wrong type or makes no sense counts as
/// a field that isn't there. Objects share nothing, so that each thread may have its own.
class ExifFile
{
public:
    /// Reads \p path; a file that can't be read is one without Exif data.
    explicit ExifFile(const CString& path);

    /// The field \p code, ready to be shown; nothing when it isn't there.
    std::optional<CString> Text(LumCMNT code) const;

private:
    std::optional<CString> SizeFact(LumCMNT code) const;

    ExifFileBlock block;
    ExifFileValues values;
};
