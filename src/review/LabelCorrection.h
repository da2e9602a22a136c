#pragma once

#include "platform/text/Export.h"
#include "platform/text/Text.h"
#include "review/PhotoReview.h"

#include <span>

class ToviPhotoArray;

inline constexpr const char* labelCorrectionTitle = "付箋の一括訂正・削除";

/// What the photographs that a correction would run over have by now.
struct CorrectionScope
{
    int photos = 0;
    int ng = 0;
    /// OK without an NG.
    int ok = 0;
    /// A label or a comment, whichever.
    int marked = 0;

    bool operator==(const CorrectionScope&) const = default;
};

/// Of \p indexes, which are photo indexes of \p photos.
CorrectionScope ScopeOf(const ToviPhotoArray& photos, std::span<const int> indexes);

/// What each correction would do to \p scope, in sentences with the numbers.
CString PasteOkConsequence(const CorrectionScope& scope);
CString RemoveChecksConsequence(const CorrectionScope& scope);
CString RemoveAllConsequence(const CorrectionScope& scope);

/// Asks whether the correction shall run. False when the user doesn't want it, or nobody can be
/// asked.
bool ConfirmLabelCorrection();
