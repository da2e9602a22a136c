#include "review/LabelEdits.h"

#include "photos/ToviPhotoArray.h"

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

LabelEdit LabelEdits::Make(LabelEdit::Kind kind, PhotoReviews before, PhotoReviews after)
{
    LabelEdit edit(kind);
    for (std::size_t i = 0; i < after.size(); ++i) {
        if (after[i] == before[i]) continue;
        edit.changes.push_back({static_cast<int>(i), std::move(before[i]), std::move(after[i])});
    }
    return edit;
}

bool LabelEdits::Apply(LabelEdit edit)
{
    if (!edit.changes.empty()) {
        if (!MayChange()) return false;
        if (recorder != nullptr) recorder->Record(edit);
    }
    for (const LabelEdit::Change& change : edit.changes) {
        Set(*all[change.photo], change.after);
    }
    if (edit.kind != LabelEdit::RecordLoad) listener(edit);
    return true;
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
    --counts[LabelSetOf(photo).to_ulong()];
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
