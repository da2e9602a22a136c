#pragma once

#include "review/PhotoReview.h"

#include <optional>

class ToviData;

/// The record of an inspection that stays open for long, while other programs may save it too. What
/// they have saved since it was loaded or saved here is never written over unasked.
class TOVI_EXPORT RecordFile
{
public:
    enum class Outcome
    {
        Saved,
        /// What went wrong stands in the text.
        Failed,
        /// The user doesn't want to any more; nothing was written.
        GivenUp,
        /// The user wants to save to the path in the text instead; nothing was written.
        Elsewhere
    };
    struct SaveResult
    {
        Outcome outcome = Outcome::Saved;
        CString text = {};
    };

    /// Where the inspection was last saved to or taken up from; empty when neither.
    const CString& Path() const { return path; }
    void Forget() { *this = {}; }

    /// What a later run needs to go on with the record: its path, and version and content of the
    /// file as they were when it was last saved or taken up.
    struct Mark
    {
        CString path;
        CString version;
        PhotoReviews reviews;
    };
    Mark GetMark() const { return {path, version, base}; }
    /// Goes on with it: what was saved since by others is found as ever.
    void Resume(const Mark& mark);

    /// Takes up the inspection in the file \p record; that of another delivery only if the user
    /// wants it. False when it isn't taken up: \p problem then says what is wrong, unless the user
    /// has given up.
    bool Load(ToviData& document, const CString& record, CString& problem);

    /// Saves the inspection to the file \p record. Where that is the one at Path() and others have
    /// changed it, the user chooses between bringing both together and another file. Any other file
    /// is replaced: whoever named it was asked by then.
    SaveResult Save(ToviData& document, const CString& record);

private:
    /// What others have saved; no reviews when it can't be read as a record of this delivery.
    struct Others
    {
        CString version;
        std::optional<PhotoReviews> reviews;
    };

    /// Nothing, with \p others filled, when they have changed the file.
    std::optional<SaveResult> SaveUnchanged(ToviData& document, const CString& record,
                                            Others& others);
    bool IsMine(const CString& record, const CString& file) const;
    void Remember(const ToviData& document, const CString& record, const CString& file);

    CString path;
    /// The path without symbolic links, and the content of the file there.
    CString target;
    CString version;
    /// What that content says.
    PhotoReviews base;
};
