#include "history/InspectionHistory.h"

#include "delivery/ToviData.h"
#include "history/EditWords.h"
#include "items/ToviItemDef.h"
#include "photos/ToviPhoto.h"
#include "platform/files/FileLock.h"
#include "platform/files/MibFile.h"

#include <ctime>
#include <random>

struct InspectionHistory::Comparison
{
    std::mutex mutex;
    std::optional<CString> notice;
};

namespace
{
std::int64_t NewNumber()
{
    std::random_device device;
    const std::uint64_t number = (std::uint64_t{device()} << 32) | device();
    return static_cast<std::int64_t>(number >> 1);
}

/// The change that \p step has made, or the one that takes it back.
LabelEdit EditOf(const HistoryStep& step, int photoCount, bool isBack)
{
    LabelEdit edit(step.photos == 1 ? LabelEdit::OnePhoto : LabelEdit::Batch);
    edit.changes = UnpackChanges(step.changes, photoCount).value_or(LabelChanges());
    if (!isBack) return edit;
    for (LabelEdit::Change& change : edit.changes) std::swap(change.before, change.after);
    return edit;
}
} // namespace

PastInspection InspectionHistory::New(int photoCount)
{
    PastInspection inspection;
    inspection.id = NewNumber();
    inspection.photoCount = photoCount;
    inspection.worked = std::time(nullptr);
    return inspection;
}

InspectionHistory::InspectionHistory(ToviData& theDocument, PastInspection past, HistoryPlace place)
    : document(theDocument), inspection(std::move(past)), begun(!inspection.steps.empty()),
      lock(std::move(place.lock)), isLocked(place.isLocked),
      comparison(std::make_shared<Comparison>())
{
    if (!place.owner.empty()) {
        access = Access::Change;
        writer = std::make_unique<HistoryWriter>(place.path, place.owner, std::move(place.file));
    }
    if (writer && begun) {
        writer->Add([id = inspection.id](HistoryFile& file) { file.MakeLatest(id); });
    }
    if (inspection.record) saved = inspection.record->steps;
    document.GetLabelEdits().SetRecorder(this);
    // What another program has done is that one's to save.
    document.SetCheckStatusChanged(writer && !IsAsSaved());
}

InspectionHistory::~InspectionHistory()
{
    document.GetLabelEdits().SetRecorder(nullptr);
    // The lock is given back when all is written.
    writer.reset();
}

HistoryWriter::State InspectionHistory::Writing() const
{
    return writer ? writer->Now() : HistoryWriter::State();
}

void InspectionHistory::Tend()
{
    if (!writer) return;
    if (writer->Now().takenOver) {
        access = Access::TakenOver;
        writer.reset();
        lock.reset();
        return;
    }
    // Whoever was taken over from gives it back when he sees that.
    if (lock && !isLocked) isLocked = lock->Take();
    // Where nothing was said, there is nothing that could have been said of other files.
    if (look && begun) NoteFiles();
}

void InspectionHistory::CompareFiles()
{
    if (writer) look = std::make_unique<FileLook>(document);
}

void InspectionHistory::NoteFiles()
{
    std::optional<FileSizes> found = look->Found();
    if (!found) return;
    look.reset();
    writer->Add([now = std::move(*found), outcome = comparison](HistoryFile& file) {
        FileSizes known = file.Files();
        const bool isFirst = known.empty();
        const FileDifference difference = DifferenceOf(known, now);
        // What is gone or became another stays so until it is again as it was.
        const std::size_t before = known.size();
        known.insert(now.begin(), now.end());
        if (known.size() != before) file.SetFiles(known);
        const std::lock_guard guard(outcome->mutex);
        outcome->notice = isFirst ? CString() : TellDifference(difference);
    });
}

CString InspectionHistory::FileNotice() const
{
    const std::lock_guard guard(comparison->mutex);
    return comparison->notice.value_or("");
}

bool InspectionHistory::HasCompared() const
{
    const std::lock_guard guard(comparison->mutex);
    return comparison->notice.has_value();
}

bool InspectionHistory::MayChange()
{
    if (writer) return true;
    if (onRefusal) onRefusal();
    return false;
}

CString InspectionHistory::UndoWords() const
{
    const auto position = static_cast<std::size_t>(inspection.position);
    return !writer || position == 0 ? CString() : inspection.steps[position - 1].words;
}

CString InspectionHistory::RedoWords() const
{
    const auto position = static_cast<std::size_t>(inspection.position);
    const bool isLast = position == inspection.steps.size();
    return !writer || isLast ? CString() : inspection.steps[position].words;
}

std::vector<int> InspectionHistory::Undo()
{
    return MoveTo(inspection.position - 1);
}

std::vector<int> InspectionHistory::Redo()
{
    return MoveTo(inspection.position + 1);
}

std::vector<int> InspectionHistory::MoveTo(int position)
{
    if (!writer || position < 0 || position > std::ssize(inspection.steps)) return {};
    const bool isBack = position < inspection.position;
    const HistoryStep& step =
        inspection.steps[static_cast<std::size_t>(isBack ? position : position - 1)];
    LabelEdit edit = EditOf(step, inspection.photoCount, isBack);
    std::vector<int> photos;
    for (const LabelEdit::Change& change : edit.changes) photos.push_back(change.photo);
    inspection.position = position;
    inspection.worked = std::time(nullptr);
    writer->Add([id = inspection.id, position, worked = inspection.worked](HistoryFile& file) {
        file.SetPosition(id, position, worked);
    });
    moving = true;
    document.GetLabelEdits().Apply(std::move(edit));
    moving = false;
    document.SetCheckStatusChanged(!IsAsSaved());
    return photos;
}

void InspectionHistory::Record(const LabelEdit& edit)
{
    if (moving) return;
    HistoryStep step{EditWords(edit, NameOf(edit)), std::time(nullptr),
                     static_cast<int>(edit.changes.size()), PackChanges(edit.changes)};
    const int number = inspection.position;
    if (saved > number) saved = -1;
    inspection.steps.resize(static_cast<std::size_t>(number));
    inspection.steps.push_back(step);
    inspection.position = number + 1;
    inspection.worked = step.made;
    BeginOnce();
    writer->Add([id = inspection.id, number, step = std::move(step)](HistoryFile& file) {
        file.AddStep(id, number, step);
    });
}

void InspectionHistory::BeginOnce()
{
    if (std::exchange(begun, true)) return;
    writer->Add([id = inspection.id, count = inspection.photoCount,
                 worked = inspection.worked](HistoryFile& file) { file.Begin(id, count, worked); });
}

void InspectionHistory::NoteRecord(RecordFile::Mark mark)
{
    if (!writer) return;
    saved = inspection.position;
    mark.path = MibAbsolutePath(mark.path);
    BeginOnce();
    writer->Add([id = inspection.id, record = HistoryRecord{std::move(mark), saved}](
                    HistoryFile& file) { file.SetRecord(id, record); });
}

void InspectionHistory::KeepSession(const SessionEntries& entries)
{
    if (!writer || !begun || entries == session) return;
    session = entries;
    writer->Add([entries](HistoryFile& file) { file.SetSession(entries); });
}

CString InspectionHistory::NameOf(const LabelEdit& edit) const
{
    if (edit.changes.size() != 1) return {};
    const int item = document.GetItemDef()->GetIndexFromTitle("写真ファイル名");
    const ToviPhoto* const photo = document.GetPhotoActualPhotoArray(edit.changes.front().photo);
    return MibGetFileName(ReplaceAll(photo->GetTitle(item), "\\", "/"));
}
