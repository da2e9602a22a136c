#pragma once

#include "platform/Text.h"
#include "review/LabelSlots.h"

#include <bitset>
#include <vector>

class ToviData;
class ToviPhoto;

/// What an inspector has said of one photograph.
struct PhotoReview
{
    std::bitset<labelCount> labels;
    CString comment;

    bool operator==(const PhotoReview&) const = default;
};

/// Those of all photographs, in the order of PHOTO.XML.
using PhotoReviews = std::vector<PhotoReview>;

PhotoReview ReviewOf(const ToviPhoto& photo);
void SetReview(ToviPhoto& photo, const PhotoReview& review);

PhotoReviews ReviewsOf(const ToviData& document);
/// \p reviews has one for each photograph.
void SetReviews(ToviData& document, const PhotoReviews& reviews);
