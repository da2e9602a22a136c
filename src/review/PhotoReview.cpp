#include "review/PhotoReview.h"

#include "photos/ToviPhotoArray.h"

PhotoReview ReviewOf(const ToviPhoto& photo)
{
    PhotoReview review;
    for (unsigned int slot = 0; slot < labelCount; ++slot) {
        review.labels[slot] = photo.IsLabelPasted(slot);
    }
    review.comment = photo.GetComment();
    return review;
}

PhotoReviews ReviewsOf(const ToviPhotoArray& photos)
{
    PhotoReviews reviews;
    for (const ToviPhoto* photo : photos) reviews.push_back(ReviewOf(*photo));
    return reviews;
}
