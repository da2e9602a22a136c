#include "review/RecordMerge.h"

#include <utility>

RecordMerge::RecordMerge(const PhotoReviews& base, PhotoReviews myReviews,
                         PhotoReviews theirReviews)
    : mine(std::move(myReviews)), theirs(std::move(theirReviews)), merged(base)
{
    for (std::size_t index = 0; index < base.size(); ++index) {
        const bool iChanged = mine[index] != base[index];
        const bool theyChanged = theirs[index] != base[index];
        changedByMe += iChanged;
        changedByThem += theyChanged;
        if (iChanged && theyChanged && mine[index] != theirs[index]) {
            contradictions.push_back(static_cast<int>(index));
        } else {
            merged[index] = theyChanged ? theirs[index] : mine[index];
        }
    }
}

PhotoReviews RecordMerge::Merged(Side side) const
{
    PhotoReviews all = merged;
    for (const int index : contradictions) {
        const auto at = static_cast<std::size_t>(index);
        all[at] = side == Side::Mine ? mine[at] : theirs[at];
    }
    return all;
}
