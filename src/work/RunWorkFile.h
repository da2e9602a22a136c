#pragma once

#include "platform/text/Text.h"

/// The folder of the suite folder with the folders of the runs for what is made of SVG photographs.
inline constexpr const char* svgWorkFolder = "QVフォトビューアー";
/// How the names of the work files with the main pictures of SVG photographs end.
inline constexpr const char* svgPictureEnd = "_Exif.JPEG";

/// The full path of the work file of this run that stands for the file \p source and whose name
/// ends in \p end. Every path has its own, and one more after each change of the file, so that no
/// photograph passes for another. The folder is made; the file is its user's to make, and goes with
/// the run. Empty without a place for it.
TOVI_EXPORT CString RunWorkFile(const CString& source, const CString& end);

/// The folder of these files, which is made; empty without a place for it.
TOVI_EXPORT CString RunWorkFolder();
/// What RunWorkFile gives while RunWorkFolder gives \p folder. Any thread may call it.
TOVI_EXPORT CString WorkFileIn(const CString& folder, const CString& source, const CString& end);
