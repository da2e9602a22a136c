#pragma once

#include "platform/pictures/LumImage.h"

/// A TIFF file may hold several pictures, as the sheets of a drawing.

/// The number of pictures in the file \p path: 1 for any other kind of file, 0 when there is none.
TOVI_EXPORT int CountTiffSheets(const CString& path);

/// The picture at \p sheet, counted from 0, of the TIFF file \p path; empty where LumImage::Load
/// would fail or there is no such sheet.
TOVI_EXPORT LumImage ReadTiffSheet(const CString& path, int sheet);
