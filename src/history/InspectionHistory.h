#pragma once

#include "history/HistoryWriter.h"

class FileLock;
class ToviData;

/// Where a history is written.
struct HistoryPlace
{
    CString path;
    /// The name under which it is written; none when it is only looked at.
    CString owner;
    /// Null where it isn't there yet, or can't be opened now.
    std::unique_ptr<HistoryFile> file;
    /// Keeps other programs out, once it is taken: who takes over has to wait for it.
    std::unique_ptr<FileLock> lock;
    bool isLocked = false;
};

/// The history of the inspection of the open delivery: it keeps every change of labels and comments
/// from the moment it is made, and takes changes back and does them again, without limit.
///
/// As long as it lives all edits of the document pass it. Where another program inspects the
/// delivery it refuses them.
class TOVI_EXPORT InspectionHistory : private LabelRecorder
{
public:
    /// The inspection \p past of \p theDocument, whose reviews are those of its position, or a new
    /// one.
    InspectionHistory(ToviData& theDocument, PastInspection past, HistoryPlace place);
    InspectionHistory(const InspectionHistory&) = delete;
    InspectionHistory& operator=(const InspectionHistory&) = delete;
    virtual ~InspectionHistory();

    /// A new inspection of \p photoCount photographs.
    static PastInspection New(int photoCount);

    /// What would be taken back or done again, in words; empty for nothing.
    CString UndoWords() const;
    CString RedoWords() const;
    /// Take the last change back, or do the one again that was taken back last. The photographs
    /// concerned, by their photo indexes; none when there is no such change.
    std::vector<int> Undo();
    std::vector<int> Redo();

    /// The document has just been saved to or taken up from the record of \p mark.
    void NoteRecord(RecordFile::Mark mark);
    /// Keeps what the windows are at, once something was said of the delivery.
    void KeepSession(const SessionEntries& entries);
    /// The labels and comments are as they were saved last, or as they were at first.
    bool IsAsSaved() const { return inspection.position == saved; }

    enum class Access
    {
        Change,
        /// Another program inspects the delivery.
        Look,
        /// The same, and it has taken over from here.
        TakenOver
    };
    Access GetAccess() const { return access; }
    /// To be called now and then: finds out whether another program has taken over, and goes on
    /// with what is done in the background.
    void Tend();
    /// Begins to compare the delivered files with those of the last inspection.
    void CompareFiles();
    bool HasCompared() const;
    /// What has become of them, in a sentence; empty when nothing has, or as long as nothing is
    /// known.
    CString FileNotice() const;
    /// Called when an edit is refused for that.
    void SetOnRefusal(std::function<void()> told) { onRefusal = std::move(told); }
    /// How writing goes on.
    HistoryWriter::State Writing() const;

private:
    bool MayChange() override;
    void Record(const LabelEdit& edit) override;
    std::vector<int> MoveTo(int position);
    /// Has the inspection written that nothing was written of yet.
    void BeginOnce();
    /// Compares what the look has found, once it is over.
    void NoteFiles();
    CString NameOf(const LabelEdit& edit) const;

    ToviData& document;
    PastInspection inspection;
    /// The position at which all was saved, or -1.
    int saved = 0;
    /// The inspection stands in the file, or waits to be written there.
    bool begun = false;
    bool moving = false;
    SessionEntries session;
    Access access = Access::Look;
    std::function<void()> onRefusal;
    std::unique_ptr<FileLock> lock;
    bool isLocked;
    std::unique_ptr<FileLook> look;
    /// What the writer has found, from its thread.
    struct Comparison;
    std::shared_ptr<Comparison> comparison;
    /// Null where nothing may be changed.
    std::unique_ptr<HistoryWriter> writer;
};
