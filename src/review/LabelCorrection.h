#pragma once

inline constexpr const char* labelCorrectionTitle = "付箋の一括訂正・削除";

/// Asks whether the correction shall run. False when the user doesn't want it, or nobody can be
/// asked.
bool ConfirmLabelCorrection();
