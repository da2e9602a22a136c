#include "history/HistoryOpening.h"

#include "delivery/ToviData.h"
#include "history/HistoryPath.h"
#include "history/HistoryQuestions.h"
#include "platform/files/FileVersion.h"
#include "platform/files/MibFile.h"
#include "platform/files/UserFolders.h"

#include <filesystem>
#include <random>

namespace
{
/// How many earlier inspections are offered.
constexpr int mostOffered = 4;

CString NewOwner()
{
    std::random_device device;
    return Format("%08x%08x", device(), device());
}

/// Gives the damaged file \p path, and what belongs to it, other names. The sentence about that.
CString PutAside(const CString& path)
{
    CString aside;
    for (int number = 1; aside.empty() || MibIsFileExist(aside); ++number) {
        aside = path + Format(".damaged-%d", number);
    }
    for (const char* part : {"", "-wal", "-shm", "-journal"}) {
        std::error_code ignored;
        std::filesystem::rename(path + part, aside + part, ignored);
    }
    return "前回までの検査の記録が壊れていて読めません。" + aside +
           " に移し、新しく記録します。保存した検査状況があれば開いてください。";
}

/// The earlier inspections in a history that is opened for \p place; the rest of what is read goes
/// to \p opened.
std::vector<PastInspection> ReadPast(HistoryPlace& place, int photoCount, OpenedHistory& opened)
{
    if (!MibIsFileExist(place.path)) return {};
    try {
        place.file = std::make_unique<HistoryFile>(place.path);
        if (!place.owner.empty()) place.file->Claim(place.owner);
        opened.session = place.file->Session();
        return place.file->Inspections(photoCount, mostOffered);
    } catch (const DatabaseError& error) {
        // Else the writer tries again, and tells why.
        place.file.reset();
        if (error.IsDamaged() && !place.owner.empty()) opened.notice = PutAside(place.path);
        return {};
    }
}

/// Nothing is to be asked: the user names the very record that holds all of \p last.
bool IsNamed(const PastInspection& last, const CString& named)
{
    return last.record && last.record->mark.path == MibAbsolutePath(named) &&
           last.record->steps == last.position && last.record->mark.version == FileVersion(named);
}

InspectionStart StartWith(const std::vector<PastInspection>& past, const CString& named,
                          bool isOthers)
{
    if (past.empty()) return {-1, named};
    if (isOthers || IsNamed(past.front(), named)) return {0, {}};
    const bool isSaved = past.front().record && past.front().record->steps == past.front().position;
    return isSaved && !named.empty() ? InspectionStart{-1, named} : AskAboutPast(past, named);
}
} // namespace

OpenedHistory OpenHistory(ToviData& document, const CString& named, const CString& path)
{
    const int photoCount = document.GetTotalCountPhoto();
    HistoryPlace place;
    place.path = path;
    place.owner = NewOwner();
    MakePrivateFolder(FolderOfHistories());
    place.lock = std::make_unique<FileLock>(place.path);
    place.isLocked = place.lock->Take();
    const bool isOthers = !place.isLocked;
    const bool isLooking =
        isOthers && AskAboutOthers(place.lock->Holder()) == OthersInspection::Look;
    if (isLooking) place.owner.clear();
    OpenedHistory opened;
    std::vector<PastInspection> past = ReadPast(place, photoCount, opened);
    const InspectionStart start = StartWith(past, named, isOthers);
    opened.record = start.record;
    PastInspection inspection = InspectionHistory::New(photoCount);
    if (start.past < 0) {
        opened.session.clear();
    } else {
        inspection = std::move(past[static_cast<std::size_t>(start.past)]);
        document.GetLabelEdits().Apply(LabelEdits::Make(
            LabelEdit::RecordLoad, PhotoReviews(static_cast<std::size_t>(photoCount)),
            ReviewsAfter(inspection)));
        if (inspection.record) opened.mark = inspection.record->mark;
    }
    if (isLooking) {
        place.file.reset();
        opened.record.clear();
    }
    opened.history =
        std::make_unique<InspectionHistory>(document, std::move(inspection), std::move(place));
    return opened;
}
