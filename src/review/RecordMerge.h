#pragma once

#include "review/PhotoReview.h"

/// Two inspections of the same photographs that began alike, brought together photograph by
/// photograph: what only one of them has changed is taken as it has it.
class RecordMerge
{
public:
    enum class Side
    {
        Mine,
        Theirs
    };

    /// \p base is what both began with. All three have one review for each photograph.
    RecordMerge(const PhotoReviews& base, PhotoReviews mine, PhotoReviews theirs);

    /// The photographs that both have changed and not in the same way, in ascending order.
    const std::vector<int>& Contradictions() const { return contradictions; }
    /// How many photographs each has changed.
    int CountOf(Side side) const { return side == Side::Mine ? changedByMe : changedByThem; }
    /// Both changes together, where they contradict each other those of \p side.
    PhotoReviews Merged(Side side) const;

private:
    PhotoReviews mine;
    PhotoReviews theirs;
    /// Without contradictions, whose photographs are as in the base.
    PhotoReviews merged;
    std::vector<int> contradictions;
    int changedByMe = 0;
    int changedByThem = 0;
};
