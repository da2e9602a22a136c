#pragma once

#include "photos/LabelSlots.h"
#include "platform/text/Text.h"

#include <bitset>
#include <vector>

class ToviPhoto;
class ToviPhotoArray;

/// A set of labels, by their slots.
using LabelSet = std::bitset<labelCount>;

/// What an inspector has said of one photograph.
struct PhotoReview
{
    LabelSet labels;
    CString comment;

    bool operator==(const PhotoReview&) const = default;
};

/// Those of all photographs, in the order of PHOTO.XML.
using PhotoReviews = std::vector<PhotoReview>;

LabelSet LabelSetOf(const ToviPhoto& photo);
PhotoReview ReviewOf(const ToviPhoto& photo);
PhotoReviews ReviewsOf(const ToviPhotoArray& photos);
