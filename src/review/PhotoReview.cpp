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

void SetReview(ToviPhoto& photo, const PhotoReview& review)
{
    photo.RemoveAllLabel();
    for (unsigned int slot = 0; slot < labelCount; ++slot) {
        if (review.labels[slot]) photo.PasteLabel(slot);
    }
    photo.SetComment(review.comment);
}

PhotoReviews ReviewsOf(const ToviData& document)
{
    PhotoReviews reviews;
    for (int index = 0; index < document.GetTotalCountPhoto(); ++index) {
        reviews.push_back(ReviewOf(*document.GetPhotoActualPhotoArray(index)));
    }
    return reviews;
}

void SetReviews(ToviData& document, const PhotoReviews& reviews)
{
    for (int index = 0; const PhotoReview& review : reviews) {
        SetReview(*document.GetPhotoActualPhotoArray(index++), review);
    }
}
