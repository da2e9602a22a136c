#include "inspection/RecordFile.h"

#include "delivery/ToviData.h"
#include "inspection/RecordConflict.h"
#include "inspection/RecordHold.h"
#include "inspection/RecordProblems.h"
#include "platform/files/FileVersion.h"
#include "review/LabelEdits.h"
#include "review/RecordMerge.h"
#include "review/ToviXmlLoadManager.h"

namespace
{
constexpr int noReason = -1;

/// What the record \p file of \p document says; what it has no element for is as in \p base.
std::optional<PhotoReviews> ReadReviews(ToviData& document, const CString& file,
                                        const PhotoReviews& base)
{
    ToviXmlLoadManager manager(file.c_str(), nullptr);
    manager.Expect(document.GetRecordOrigin());
    PhotoReviews reviews = base;
    int reason = noReason;
    if (!manager.Load(reviews, &reason)) return std::nullopt;
    return reviews;
}

void TakeUp(ToviData& document, const PhotoReviews& merged)
{
    LabelEdits& edits = document.GetLabelEdits();
    edits.Apply(LabelEdits::Make(LabelEdit::RecordMerge, document.GetReviews(), merged));
    document.UpdateHasComment();
}
} // namespace

bool RecordFile::Load(ToviData& document, const CString& record, CString& problem)
{
    problem.clear();
    const CString file = RecordHold(record).Target();
    // Taken before the bytes are read: what comes in between counts as changed by others.
    const CString before = FileVersion(file);
    int reason = noReason;
    bool loaded = document.LoadExamination(file.c_str(), &reason);
    if (!loaded && reason == RecordOtherDelivery) {
        if (!AskAboutOtherDelivery(document, record)) return false;
        loaded = document.LoadExamination(file.c_str(), &reason, ToviData::RecordsOfAnyDelivery);
    }
    if (!loaded) {
        problem = WhyRecordNotLoaded(document, record, reason);
        return false;
    }
    Remember(document, record, file);
    version = before;
    return true;
}

RecordFile::SaveResult RecordFile::Save(ToviData& document, const CString& record)
{
    Others others;
    for (;;) {
        if (const auto done = SaveUnchanged(document, record, others)) return *done;
        // Nobody is kept waiting while the user thinks: the next round sees what came meanwhile.
        std::optional<RecordMerge> merge;
        if (others.reviews) merge.emplace(base, document.GetReviews(), *others.reviews);
        const RecordConflictAnswer answer =
            AskAboutConflict(document, record, merge ? &*merge : nullptr);
        switch (answer.decision) {
        case RecordConflictAnswer::GiveUp:
            return {Outcome::GivenUp};
        case RecordConflictAnswer::Elsewhere:
            return {Outcome::Elsewhere, answer.path};
        case RecordConflictAnswer::Merge:
            TakeUp(document, merge->Merged(answer.side));
            base = *others.reviews;
            version = others.version;
        }
    }
}

std::optional<RecordFile::SaveResult>
RecordFile::SaveUnchanged(ToviData& document, const CString& record, Others& others)
{
    RecordHold hold(record);
    switch (hold.Take()) {
    case RecordHold::Outcome::Others:
        return SaveResult{Outcome::Failed, WhyRecordHeld(record, hold.Holder())};
    case RecordHold::Outcome::Cancelled:
        return SaveResult{Outcome::GivenUp};
    case RecordHold::Outcome::Held:
        break;
    }
    const CString& file = hold.Target();
    const CString now = IsMine(record, file) ? FileVersion(file) : CString();
    // A file that is gone has nothing to lose.
    if (!now.empty() && now != version) {
        others = {now, ReadReviews(document, file, base)};
        return std::nullopt;
    }
    int reason = noReason;
    if (!document.SaveExamination(file.c_str(), nullptr, &reason)) {
        return SaveResult{Outcome::Failed, WhyRecordNotSaved(record, reason)};
    }
    Remember(document, record, file);
    version = FileVersion(file);
    return SaveResult{};
}

void RecordFile::Resume(const Mark& mark)
{
    path = mark.path;
    target = RecordHold(path).Target();
    version = mark.version;
    base = mark.reviews;
}

bool RecordFile::IsMine(const CString& record, const CString& file) const
{
    return !path.empty() && (record == path || file == target);
}

void RecordFile::Remember(const ToviData& document, const CString& record, const CString& file)
{
    path = record;
    target = file;
    base = document.GetReviews();
}
