#include "inspection/ReviewCounts.h"

#include "delivery/ToviData.h"
#include "photos/LabelSlots.h"
#include "review/LabelEdits.h"
#include "review/PhotoReview.h"

ReviewCounts CountReview(const ToviData& document)
{
    ReviewCounts counts;
    counts.shown = document.GetCurrentPhotoCount();
    counts.all = document.GetTotalCountPhoto();
    const LabelSet ok(1u << LabelOk);
    const LabelSet ng(1u << LabelNg1 | 1u << LabelNg2 | 1u << LabelNg3);
    const LabelEdits& edits = document.GetLabelEdits();
    counts.ok = edits.Count(ok);
    counts.ng = edits.Count(ng);
    counts.unchecked = counts.all - edits.Count(ok | ng);
    return counts;
}
