#pragma once

#include "review/PhotoReview.h"

/// The rules by which an inspector's own hand pastes and removes labels. A photograph itself takes
/// any combination, and a record may restore one. A slot of labelCount or more changes nothing.
namespace LabelRules
{
/// Pastes \p slot: OK and the NG labels take each other off. The comment label is pasted only where
/// there is a comment. True when the label is there afterwards.
TOVI_EXPORT bool Paste(PhotoReview& review, unsigned int slot);

/// Removes \p slot; the comment goes with its label.
TOVI_EXPORT void Remove(PhotoReview& review, unsigned int slot);

/// Takes \p text as the comment, and the comment label with it. Of half-width and full-width blanks
/// only, nothing is kept and both are taken away; any other text keeps its blanks.
TOVI_EXPORT void EditComment(PhotoReview& review, const CString& text);

/// Takes all labels and the comment away.
TOVI_EXPORT void RemoveAllLabel(PhotoReview& review);

/// OK in place of OK and NG; the other labels and the comment stay.
void CorrectAllOK(PhotoReview& review);
/// Neither OK nor NG; the other labels and the comment stay.
void CorrectAllNotCheck(PhotoReview& review);
/// Pastes OK, unless there is an NG label.
void CorrectUnlessNG(PhotoReview& review);
} // namespace LabelRules
