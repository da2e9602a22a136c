#pragma once

#include "history/InspectionHistory.h"

/// A history that was opened, and what the user wants to go on with.
struct OpenedHistory
{
    std::unique_ptr<InspectionHistory> history;
    /// The record that the inspection goes on with; nothing when it has none.
    std::optional<RecordFile::Mark> mark;
    /// The record that is to be taken up now; empty for none.
    CString record;
    /// What the windows of the inspection that goes on were at; empty when it is a new one.
    SessionEntries session;
    /// What has to be known of it, in a sentence; empty when there is nothing.
    CString notice;
};

/// Opens the history of the delivery \p document, in which nothing was said yet. Where there are
/// earlier inspections of it the user chooses one, which the document has then, or a new one; where
/// another program inspects it, whether to look or to take over. \p named is the record that the
/// user wants to take up; empty for none. \p path is that of the history (see HistoryPathOf).
TOVI_EXPORT OpenedHistory OpenHistory(ToviData& document, const CString& named,
                                      const CString& path);
