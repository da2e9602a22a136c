#pragma once

#include "imagefacts/ToviExifInfo.h"

/// What the file of one photograph says, read at once: for whoever shows it without a photograph
/// at hand.
struct TOVI_EXPORT PhotoFacts
{
    ToviExifInfo exif;
    /// The titles of what the file system and the picture's header say, with their values.
    ToviTextPairArray file;

    /// The values under the titles that the item settings offer; empty where there is none.
    CString OfExif(const CString& title) const;
    CString OfFile(const CString& title) const;
};

/// Fills \p facts, which are empty, with those of the file \p path. The main picture of an SVG
/// photograph, which its Exif data are read from, becomes a file of \p workFolder (see
/// RunWorkFolder). Any thread may call it.
TOVI_EXPORT void ReadPhotoFacts(const CString& path, const CString& workFolder, PhotoFacts& facts);
