#pragma once

#include "document/ToviPhoto.h"

#include <vector>

/// A label that is to be pasted on a photograph or removed from it.
struct LabelRequest
{
    bool paste = false;
    unsigned int label = 0;

    bool operator==(const LabelRequest&) const = default;
};

/// What a press of the button of \p label, which isn't the comment's, asks for on \p photo: the
/// label is pasted or removed; OK and the NG labels take each other off, as far as they are there.
std::vector<LabelRequest> RequestsOfPress(const ToviPhoto& photo, unsigned int label);

/// What brings the comment label of \p photo in step with its comment.
std::vector<LabelRequest> RequestsOfComment(const ToviPhoto& photo);
