#pragma once

#include <string_view>

/// How many rows from the top on the bytes of a JPEG file have the data for, which ends too soon;
/// of one that comes in several passes all, since each of them covers the picture. 0 when it can't
/// be decoded at all.
int CountJpegRows(std::string_view bytes);
