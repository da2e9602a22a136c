#include "history/HistoryFile.h"

#include "platform/files/MibFile.h"
#include "platform/files/UserFolders.h"

#include <algorithm>

namespace
{
constexpr std::int64_t formVersion = 1;

constexpr const char* tables = R"(
CREATE TABLE IF NOT EXISTS owner (name TEXT NOT NULL);
CREATE TABLE IF NOT EXISTS inspection (
    id INTEGER PRIMARY KEY,
    photos INTEGER NOT NULL,
    position INTEGER NOT NULL,
    worked INTEGER NOT NULL,
    turn INTEGER NOT NULL DEFAULT 0,
    record TEXT NOT NULL DEFAULT '',
    version TEXT NOT NULL DEFAULT '',
    reviews BLOB NOT NULL DEFAULT '',
    saved INTEGER NOT NULL DEFAULT -1);
CREATE TABLE IF NOT EXISTS step (
    inspection INTEGER NOT NULL REFERENCES inspection,
    number INTEGER NOT NULL,
    words TEXT NOT NULL,
    made INTEGER NOT NULL,
    photos INTEGER NOT NULL,
    changes BLOB NOT NULL,
    UNIQUE (inspection, number));
CREATE TABLE IF NOT EXISTS session (name TEXT PRIMARY KEY, value TEXT NOT NULL);
CREATE TABLE IF NOT EXISTS files (sizes TEXT NOT NULL);
PRAGMA user_version = 1;
)";

/// \p path once its folder is there.
const CString& InFolder(const CString& path)
{
    const CString folder = path.substr(0, path.rfind('/') + 1);
    if (!MakePrivateFolder(folder)) throw DatabaseError(WriteFailure::NotWritable, false, folder);
    return path;
}
} // namespace

PhotoReviews ReviewsAfter(const PastInspection& inspection)
{
    PhotoReviews reviews(static_cast<std::size_t>(inspection.photoCount));
    for (int step = 0; step < inspection.position; ++step) {
        const CString& bytes = inspection.steps[static_cast<std::size_t>(step)].changes;
        for (LabelEdit::Change& change :
             UnpackChanges(bytes, inspection.photoCount).value_or(LabelChanges())) {
            reviews[static_cast<std::size_t>(change.photo)] = std::move(change.after);
        }
    }
    return reviews;
}

HistoryFile::HistoryFile(const CString& path) : database(InFolder(path))
{
    Database::Statement version = database.Ask("PRAGMA user_version");
    version.Next();
    if (version.Number(0) > formVersion) {
        throw DatabaseError(WriteFailure::Other, false, "made by a later version");
    }
    if (version.Number(0) < formVersion) MakeTables();
}

void HistoryFile::MakeTables()
{
    Transaction transaction(database);
    database.RunAll(tables);
    transaction.Commit();
}

CString HistoryFile::Owner()
{
    Database::Statement row = database.Ask("SELECT name FROM owner");
    return row.Next() ? row.Text(0) : CString();
}

void HistoryFile::Claim(const CString& owner)
{
    Transaction transaction(database);
    database.Run("DELETE FROM owner");
    database.Run("INSERT INTO owner VALUES (?)", owner);
    transaction.Commit();
}

std::vector<PastInspection> HistoryFile::Inspections(int photoCount, int most)
{
    std::vector<PastInspection> all;
    Database::Statement row = database.Ask(
        "SELECT id, position, worked, record, version, reviews, saved FROM inspection WHERE photos "
        "= ? AND EXISTS (SELECT 1 FROM step WHERE inspection = id) ORDER BY turn DESC",
        photoCount);
    while (std::ssize(all) < most && row.Next()) {
        const bool isSaved = row.Number(1) == row.Number(6);
        if (isSaved && !all.empty()) continue;
        PastInspection& past = all.emplace_back();
        past.id = row.Number(0);
        past.photoCount = photoCount;
        past.position = static_cast<int>(row.Number(1));
        past.worked = row.Number(2);
        std::optional<PhotoReviews> reviews = UnpackReviews(row.Text(5), photoCount);
        if (row.Text(3).empty() || !reviews) continue;
        past.record = {{row.Text(3), row.Text(4), std::move(*reviews)},
                       static_cast<int>(row.Number(6))};
    }
    for (PastInspection& past : all) ReadSteps(past);
    return all;
}

void HistoryFile::ReadSteps(PastInspection& inspection)
{
    Database::Statement row = database.Ask(
        "SELECT words, made, photos, changes FROM step WHERE inspection = ? ORDER BY number",
        inspection.id);
    while (row.Next()) {
        HistoryStep step{row.Text(0), row.Number(1), static_cast<int>(row.Number(2)), row.Text(3)};
        if (!UnpackChanges(step.changes, inspection.photoCount)) break;
        inspection.steps.push_back(std::move(step));
    }
    const int count = static_cast<int>(inspection.steps.size());
    inspection.position = std::clamp(inspection.position, 0, count);
}

void HistoryFile::Begin(std::int64_t id, int photoCount, std::int64_t worked)
{
    database.Run("INSERT INTO inspection (id, photos, position, worked) VALUES (?, ?, 0, ?)", id,
                 photoCount, worked);
    MakeLatest(id);
}

void HistoryFile::MakeLatest(std::int64_t id)
{
    database.Run("UPDATE inspection SET turn = 1 + (SELECT max(turn) FROM inspection) WHERE id = ?",
                 id);
}

void HistoryFile::AddStep(std::int64_t id, int number, const HistoryStep& step)
{
    database.Run("DELETE FROM step WHERE inspection = ? AND number >= ?", id, number);
    database.Run("INSERT INTO step VALUES (?, ?, ?, ?, ?, ?)", id, number, step.words, step.made,
                 step.photos, Blob{step.changes});
    // What was saved stays in the record, but no longer among the steps.
    database.Run("UPDATE inspection SET saved = -1 WHERE id = ? AND saved > ?", id, number);
    SetPosition(id, number + 1, step.made);
}

void HistoryFile::SetPosition(std::int64_t id, int position, std::int64_t worked)
{
    database.Run("UPDATE inspection SET position = ?, worked = ? WHERE id = ?", position, worked,
                 id);
}

void HistoryFile::SetRecord(std::int64_t id, const HistoryRecord& record)
{
    database.Run(
        "UPDATE inspection SET record = ?, version = ?, reviews = ?, saved = ? WHERE id = ?",
        record.mark.path, record.mark.version, Blob{PackReviews(record.mark.reviews)}, record.steps,
        id);
}

FileSizes HistoryFile::Files()
{
    Database::Statement row = database.Ask("SELECT sizes FROM files");
    return row.Next() ? UnpackSizes(row.Text(0)) : FileSizes();
}

void HistoryFile::SetFiles(const FileSizes& files)
{
    database.Run("DELETE FROM files");
    database.Run("INSERT INTO files VALUES (?)", PackSizes(files));
}

SessionEntries HistoryFile::Session()
{
    SessionEntries entries;
    Database::Statement row = database.Ask("SELECT name, value FROM session");
    while (row.Next()) entries[row.Text(0)] = row.Text(1);
    return entries;
}

void HistoryFile::SetSession(const SessionEntries& entries)
{
    database.Run("DELETE FROM session");
    for (const auto& [name, value] : entries) {
        database.Run("INSERT INTO session VALUES (?, ?)", name, value);
    }
}
