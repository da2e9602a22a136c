#pragma once

#include "review/LabelEdits.h"

#include <cstdint>
#include <optional>

/// One change of labels and comments as it is kept.
struct HistoryStep
{
    /// What it did, as the user reads it.
    CString words;
    /// When it was made, in seconds since 1970.
    std::int64_t made = 0;
    /// What became another in how many photographs (see PackChanges).
    int photos = 0;
    CString changes;
};

using LabelChanges = std::vector<LabelEdit::Change>;

/// \p changes as bytes: few for a photograph without a comment.
CString PackChanges(const LabelChanges& changes);
/// The changes that \p bytes are; nothing when they are none, or tell of a photo index that isn't
/// below \p photoCount.
std::optional<LabelChanges> UnpackChanges(std::string_view bytes, int photoCount);

/// The same for what has been said of all photographs.
CString PackReviews(const PhotoReviews& reviews);
std::optional<PhotoReviews> UnpackReviews(std::string_view bytes, int photoCount);
