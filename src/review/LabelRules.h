#pragma once

#include "document/ToviPhoto.h"

/// The rules by which an inspector's own hand pastes and removes labels. The photograph itself
/// takes any combination, and a record may restore one.
namespace LabelRules
{
/// Pastes \p slot: OK and the NG labels take each other off. The comment label is pasted only where
/// there is a comment. True when the label is there afterwards.
TOVI_EXPORT bool Paste(ToviPhoto& photo, unsigned int slot);

/// Removes \p slot; the comment goes with its label.
TOVI_EXPORT void Remove(ToviPhoto& photo, unsigned int slot);

/// What is kept of \p text as a comment: nothing of half-width and full-width blanks only, all of
/// any other text with its blanks.
TOVI_EXPORT CString KeptComment(const CString& text);

/// Gives \p photo the comment \p text, as far as it is kept, and the comment label with it.
/// Where nothing is kept both are taken away.
TOVI_EXPORT void EditComment(ToviPhoto& photo, const CString& text);
} // namespace LabelRules
