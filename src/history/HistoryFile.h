#pragma once

#include "history/DeliveredFiles.h"
#include "history/HistoryStep.h"
#include "inspection/RecordFile.h"
#include "platform/store/Database.h"

/// What the windows of an inspection were at, by names that are theirs.
using SessionEntries = std::map<CString, CString>;

/// The record that an inspection was saved to or taken up from last.
struct HistoryRecord
{
    RecordFile::Mark mark;
    /// How many steps it holds, or -1 when they are no longer among those that are kept.
    int steps = -1;
};

/// One inspection of a delivery, as it was kept.
struct PastInspection
{
    /// A number that no other has.
    std::int64_t id = 0;
    /// How many photographs it is of.
    int photoCount = 0;
    /// All steps; those from \p position on were taken back.
    std::vector<HistoryStep> steps;
    int position = 0;
    /// When it was worked on last, in seconds since 1970.
    std::int64_t worked = 0;
    std::optional<HistoryRecord> record;
};

/// What \p inspection has said of all its photographs at its position.
TOVI_EXPORT PhotoReviews ReviewsAfter(const PastInspection& inspection);

/// The file with all inspections of one delivery. Nothing in it is ever given up but steps that
/// were taken back and followed by others. For one thread at a time; every operation throws
/// DatabaseError.
class TOVI_EXPORT HistoryFile
{
public:
    /// Opens the file \p path, which is made with its folder, both for this user alone, where it is
    /// missing.
    explicit HistoryFile(const CString& path);

    Database& Store() { return database; }

    /// Who may write to it: whoever claimed it last.
    CString Owner();
    void Claim(const CString& owner);

    /// Those with steps, of \p photoCount photographs, the latest first and at most \p most; behind
    /// that one only those of which a record doesn't hold all. A step that can't be read ends its
    /// inspection in front of it.
    std::vector<PastInspection> Inspections(int photoCount, int most);

    /// A new inspection without steps, which is the latest.
    void Begin(std::int64_t id, int photoCount, std::int64_t worked);
    /// The inspection \p id goes on.
    void MakeLatest(std::int64_t id);
    /// Puts \p step in the place \p number, counted from 0, of the inspection \p id and drops
    /// those behind it.
    void AddStep(std::int64_t id, int number, const HistoryStep& step);
    /// Of the steps the first \p position hold, since the time \p worked.
    void SetPosition(std::int64_t id, int position, std::int64_t worked);
    void SetRecord(std::int64_t id, const HistoryRecord& record);

    SessionEntries Session();
    void SetSession(const SessionEntries& entries);

    /// The delivered files as they were when they were first seen.
    FileSizes Files();
    void SetFiles(const FileSizes& files);

private:
    void MakeTables();
    void ReadSteps(PastInspection& inspection);

    Database database;
};
