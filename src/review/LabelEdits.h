#pragma once

#include "platform/CObject.h"
#include "review/PhotoReview.h"

#include <array>
#include <functional>
#include <span>

class CWnd;

/// One change of labels and comments, as a value. The edit with before and after exchanged takes it
/// back.
struct TOVI_EXPORT LabelEdit : CObject
{
    enum Kind
    {
        /// Of one photograph, by the user's hand.
        OnePhoto,
        /// The same of several at once.
        Batch,
        /// What others have saved in the record meanwhile.
        RecordMerge,
        /// What the record says that is taken up.
        RecordLoad
    };
    struct Change
    {
        /// A photo index.
        int photo = 0;
        PhotoReview before;
        PhotoReview after;
    };

    explicit LabelEdit(Kind theKind, CWnd* theSender = nullptr) : kind(theKind), sender(theSender)
    {}

    Kind kind;
    /// The view that asked and shows the outcome by itself; null for none.
    CWnd* sender;
    /// What becomes another, and nothing else.
    std::vector<Change> changes;
};

/// The one door through which labels and comments of a document change. It marks the document as
/// changed, tells the views, and knows at any time how many photographs have a label.
class TOVI_EXPORT LabelEdits
{
public:
    /// Changes one review.
    using Rule = std::function<void(PhotoReview&)>;

    /// Of \p theDocument, which owns this and whose photographs have no label yet.
    explicit LabelEdits(ToviData& theDocument) : document(theDocument) {}

    /// The edit that does \p rule to each of \p photos, which are photo indexes; one outside
    /// throws InvalidArgument.
    LabelEdit Make(LabelEdit::Kind kind, std::span<const int> photos, const Rule& rule,
                   CWnd* sender = nullptr) const;
    /// The edit that gives all photographs the reviews \p after.
    LabelEdit Make(LabelEdit::Kind kind, const PhotoReviews& after) const;

    /// Gives each photograph of \p edit what it has afterwards. Also when that changes nothing the
    /// document counts as changed, and all views but the sender hear of it: by HintPhotoInfoChanged
    /// with the edit for OnePhoto, by HintLabelsChanged for several. RecordLoad does neither.
    void Apply(LabelEdit edit);

    /// How many photographs have any of \p labels.
    int Count(LabelSet labels) const;

private:
    void Set(ToviPhoto& photo, const PhotoReview& review);

    ToviData& document;
    /// How many photographs have just this set of labels; those without any aren't counted.
    std::array<int, 1u << labelCount> counts{};
};
