#pragma once

#include "photos/ToviPhotoRef.h"
#include "platform/text/Text.h"

class ToviPhotoArray;

/// What photographs can be sorted by besides their items.
inline constexpr const char* labelsSortKey = "付箋";
inline constexpr const char* commentSortKey = "コメント";

/// Orders \p current, indexes into \p photos, by the labels or the comments if \p key is one of the
/// two above, else returns false: first those with OK, then NG1 to NG3, comment and free label, and
/// those without a label; comments by the codes of code page 932. Equal ones keep the order of the
/// indexes; a descending order is the exact reverse.
TOVI_EXPORT bool SortByReview(const CString& key, bool ascending, const ToviPhotoArray& photos,
                              ToviPhotoRef& current);
