#include "review/PhotoReview.h"

#include "document/ToviData.h"

PhotoReview ReviewOf(const ToviPhoto& photo)
{
    PhotoReview review;
    for (unsigned int slot = 0; slot < labelCount; ++slot) {
        review.labels[slot] = photo.IsLabelPasted(slot);
    }
    review.comment = photo.GetComment();
    return review;
}

PhotoReviews ReviewsOf(const ToviData& document)
{
    PhotoReviews reviews;
    for (int index = 0; index < document.GetTotalCountPhoto(); ++index) {
        reviews.push_back(ReviewOf(*document.GetPhotoActualPhotoArray(index)));
    }
    return reviews;
}
