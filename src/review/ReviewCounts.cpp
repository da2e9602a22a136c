#include "review/ReviewCounts.h"

#include "document/ToviData.h"

ReviewCounts CountReview(const ToviData& document)
{
    ReviewCounts counts;
    counts.shown = document.GetCurrentPhotoCount();
    counts.all = document.GetTotalCountPhoto();
    for (int index = 0; index < counts.all; ++index) {
        const ToviPhoto& photo = *document.GetPhotoActualPhotoArray(index);
        counts.ok += photo.IsOK();
        counts.ng += photo.HasNGLabel();
        counts.unchecked += photo.IsNotCheck();
    }
    return counts;
}
