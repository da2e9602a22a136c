#pragma once

#include "platform/text/Text.h"

/// True when the file or folder \p path, symbolic links followed, is or would come to be inside a
/// delivered folder, in which nothing is ever written. \p path need not exist. Delivered are
///   - a folder with a PHOTO.XML, and if PIC or DRA stands beside it all that is below,
///   - a folder with an index file INDEX_*.XML above a folder PHOTO with a PHOTO.XML, and all that
///     is below.
TOVI_EXPORT bool IsInDelivery(const CString& path);
