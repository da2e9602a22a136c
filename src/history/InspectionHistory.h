#pragma once

#include "history/HistoryWriter.h"

class ToviData;

/// The history of the inspection of the open delivery: it keeps every change of labels and comments
/// from the moment it is made, and takes changes back and does them again, without limit.
///
/// As long as it lives all edits of the document pass it.
class TOVI_EXPORT InspectionHistory
{
public:
    /// The inspection \p begun of \p theDocument, whose reviews are those of its position, or a new
    /// one. It is written to \p path by \p owner; \p opened is that file as owned, or null where
    /// it can't be opened yet.
    InspectionHistory(ToviData& theDocument, PastInspection begun, const CString& path,
                      const CString& owner, std::unique_ptr<HistoryFile> opened);
    InspectionHistory(const InspectionHistory&) = delete;
    InspectionHistory& operator=(const InspectionHistory&) = delete;
    ~InspectionHistory();

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
    /// The labels and comments are as they were saved last, or as they were at first.
    bool IsAsSaved() const { return inspection.position == saved; }

    const HistoryWriter& Writer() const { return *writer; }

private:
    bool Record(const LabelEdit& edit);
    std::vector<int> MoveTo(int position);
    /// Has the inspection written that nothing was written of yet.
    void BeginOnce();
    CString NameOf(const LabelEdit& edit) const;

    ToviData& document;
    PastInspection inspection;
    /// The position at which all was saved, or -1.
    int saved = 0;
    /// The inspection stands in the file, or waits to be written there.
    bool begun = false;
    bool moving = false;
    std::unique_ptr<HistoryWriter> writer;
};
