#pragma once

#include "platform/text/Text.h"

/// The texts that a comment can be made of (定型文): those that were used, the latest first. They
/// stand in the profile, where several programs may add theirs.
namespace CommentTexts
{
/// As many are kept, and can be taken by a key.
inline constexpr int mostKept = 50;
inline constexpr int mostByKey = 9;

TOVI_EXPORT CStringArray All();
/// Puts \p text in front; one of blanks alone changes nothing.
TOVI_EXPORT void NoteUse(const CString& text);
/// Takes \p texts in place of all, without what is empty or there already.
TOVI_EXPORT void Replace(const CStringArray& texts);
} // namespace CommentTexts
