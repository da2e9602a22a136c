#pragma once

#include "delivery/ToviData.h"
#include "review/LabelEdits.h"

/// Labels and comments as a record brings them: any combination, without a mark and a hint. A photo
/// is a photo index.
inline void Review(ToviData& document, int photo, const LabelEdits::Rule& rule)
{
    LabelEdits& edits = document.GetLabelEdits();
    edits.Apply(edits.Make(LabelEdit::RecordLoad, {&photo, 1}, rule));
}

inline void PasteLabel(ToviData& document, int photo, unsigned int slot)
{
    Review(document, photo, [slot](PhotoReview& review) { review.labels.set(slot); });
}

inline void RemoveLabel(ToviData& document, int photo, unsigned int slot)
{
    Review(document, photo, [slot](PhotoReview& review) { review.labels.reset(slot); });
}

inline void SetComment(ToviData& document, int photo, const CString& text)
{
    Review(document, photo, [&text](PhotoReview& review) { review.comment = text; });
}

inline void RemoveAllLabel(ToviData& document, int photo)
{
    Review(document, photo, [](PhotoReview& review) { review = {}; });
}
