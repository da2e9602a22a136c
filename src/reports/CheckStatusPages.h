#pragma once

#include "platform/sheets/SpreadsheetApplication.h"

/// The arithmetic of the check report's pages. A page is a block of rows on the sheet: the header
/// that the form brings, and a row for each of its photographs.

inline constexpr int photosPerPage = 31;
inline constexpr int rowsPerPage = photosPerPage + 1;

/// The number of photographs on each page of a report of \p photoCount. The last page has the rest,
/// which may be none.
TOVI_EXPORT CArray<int> PageSizes(int photoCount);

/// The sheet row, counted from 1, of the first photograph on \p page, counted from 0.
int FirstPhotoRow(int page);

/// True when a sheet of \p format has the rows for \p pageCount pages.
bool FitsSheet(int pageCount, SpreadsheetFormat format);
