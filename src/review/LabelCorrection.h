#pragma once

#include "document/ToviPhotoArray.h"
#include "document/ToviPhotoRef.h"

inline constexpr const char* labelCorrectionTitle = "付箋の一括訂正・削除";

/// Asks whether the correction shall run. False when the user doesn't want it, or nobody can be
/// asked.
bool ConfirmLabelCorrection();

/// Pastes OK on each photograph of \p shown without an NG label. False when \p shown is empty.
bool PasteOkOnAll(const ToviPhotoArray& photos, const ToviPhotoRef& shown);

/// Takes OK and NG off each photograph of \p shown. False when \p shown is empty.
bool RemoveChecksFromAll(const ToviPhotoArray& photos, const ToviPhotoRef& shown);

/// Takes all labels and the comment off each photograph of \p shown.
void RemoveAllFromAll(const ToviPhotoArray& photos, const ToviPhotoRef& shown);
