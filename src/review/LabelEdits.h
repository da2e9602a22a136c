#pragma once

#include "platform/host/CObject.h"
#include "review/PhotoReview.h"

#include <array>
#include <functional>
#include <span>

class CWnd;
class ToviPhotoArray;

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

/// Who keeps what is done to labels and comments.
class LabelRecorder
{
public:
    /// False where nothing may be changed, which the user is told then.
    virtual bool MayChange() = 0;
    /// Hears of each edit that changes something before it is applied, of whatever kind.
    virtual void Record(const LabelEdit& edit) = 0;

protected:
    ~LabelRecorder() = default;
};

/// The one door through which labels and comments of a document change. It has the document tell
/// its views, and knows at any time how many photographs have a label.
class TOVI_EXPORT LabelEdits
{
public:
    /// Changes one review.
    using Rule = std::function<void(PhotoReview&)>;

    /// Told of each edit that was applied but for RecordLoad, also when it changed nothing.
    using Listener = std::function<void(LabelEdit& edit)>;

    /// Of \p thePhotos, which have no label yet and outlive this.
    LabelEdits(ToviPhotoArray& thePhotos, Listener theListener)
        : all(thePhotos), listener(std::move(theListener))
    {}

    /// The edit that does \p rule to each of \p photos, which are photo indexes; one outside
    /// throws InvalidArgument.
    LabelEdit Make(LabelEdit::Kind kind, std::span<const int> photos, const Rule& rule,
                   CWnd* sender = nullptr) const;
    /// The edit that gives all photographs, whose reviews are \p before now, the reviews \p after.
    static LabelEdit Make(LabelEdit::Kind kind, PhotoReviews before, PhotoReviews after);

    /// From now on \p theRecorder hears of the edits; null ends that.
    void SetRecorder(LabelRecorder* theRecorder) { recorder = theRecorder; }
    /// False where every edit is refused, which the user is told then.
    bool MayChange() const { return recorder == nullptr || recorder->MayChange(); }

    /// Gives each photograph of \p edit what it has afterwards, and tells the listener. False, with
    /// nothing done, when the recorder refuses it.
    bool Apply(LabelEdit edit);

    /// How many photographs have any of \p labels.
    int Count(LabelSet labels) const;

private:
    void Set(ToviPhoto& photo, const PhotoReview& review);

    ToviPhotoArray& all;
    Listener listener;
    LabelRecorder* recorder = nullptr;
    /// How many photographs have just this set of labels; those without any aren't counted.
    std::array<int, 1u << labelCount> counts{};
};
