#include "review/PhotoReview.h"

#include "photos/ToviPhotoArray.h"

LabelSet LabelSetOf(const ToviPhoto& photo)
{
    LabelSet labels;
    for (unsigned int slot = 0; slot < labelCount; ++slot) {
        labels[slot] = photo.IsLabelPasted(slot);
    }
    return labels;
}

PhotoReview ReviewOf(const ToviPhoto& photo)
{
    return {LabelSetOf(photo), photo.GetComment()};
}

PhotoReviews ReviewsOf(const ToviPhotoArray& photos)
{
    PhotoReviews reviews;
    reviews.reserve(static_cast<std::size_t>(photos.GetSize()));
    for (const ToviPhoto* photo : photos) reviews.push_back(ReviewOf(*photo));
    return reviews;
}
