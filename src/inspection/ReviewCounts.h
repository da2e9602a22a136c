#pragma once

#include "platform/text/Export.h"

class ToviData;

/// How far an inspection has come.
struct ReviewCounts
{
    int shown = 0;
    int all = 0;
    int ok = 0;
    int ng = 0;
    /// 未検査: neither OK nor NG.
    int unchecked = 0;

    bool operator==(const ReviewCounts&) const = default;
};

/// Counts the photographs of \p document; those on show are the ones of its current array.
TOVI_EXPORT ReviewCounts CountReview(const ToviData& document);
