#include "review/LabelEdits.h"

#include "photos/ToviPhotoArray.h"

#include <numeric>

LabelEdit LabelEdits::Make(LabelEdit::Kind kind, std::span<const int> photos, const Rule& rule,
                           CWnd* sender) const
{
    LabelEdit edit(kind, sender);
    for (const int index : photos) {
        PhotoReview before = ReviewOf(*all[index]);
        PhotoReview after = before;
        rule(after);
        if (after == before) continue;
        edit.changes.push_back({index, std::move(before), std::move(after)});
    }
    return edit;
}

LabelEdit LabelEdits::Make(LabelEdit::Kind kind, const PhotoReviews& after) const
{
    std::vector<int> indexes(after.size());
    std::iota(indexes.begin(), indexes.end(), 0);
    auto next = after.begin();
    return Make(kind, indexes, [&next](PhotoReview& review) { review = *next++; });
}

void LabelEdits::Apply(LabelEdit edit)
{
    for (const LabelEdit::Change& change : edit.changes) {
        Set(*all[change.photo], change.after);
    }
    if (edit.kind != LabelEdit::RecordLoad) listener(edit);
}

int LabelEdits::Count(LabelSet labels) const
{
    int photos = 0;
    for (std::size_t set = 1; set < counts.size(); ++set) {
        if ((LabelSet(set) & labels).any()) photos += counts[set];
    }
    return photos;
}

void LabelEdits::Set(ToviPhoto& photo, const PhotoReview& review)
{
    --counts[ReviewOf(photo).labels.to_ulong()];
    ++counts[review.labels.to_ulong()];
    for (unsigned int slot = 0; slot < labelCount; ++slot) {
        if (review.labels[slot]) {
            photo.PasteLabel(slot);
        } else {
            photo.RemoveLabel(slot);
        }
    }
    photo.SetComment(review.comment);
}
