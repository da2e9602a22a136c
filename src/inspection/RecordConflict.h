#pragma once

#include "review/RecordMerge.h"

class ToviData;

/// What the user says about a record that others have changed too.
struct RecordConflictAnswer
{
    enum Decision
    {
        GiveUp,
        /// To save to another file.
        Elsewhere,
        Merge
    };

    Decision decision = GiveUp;
    /// Of Elsewhere.
    CString path = {};
    /// Of Merge: whose changes hold where they contradict each other.
    RecordMerge::Side side = RecordMerge::Side::Mine;
};

/// Asks the user whether to take up the inspection in the file \p record, which is another
/// delivery's than \p document. Nobody to ask doesn't want it.
bool AskAboutOtherDelivery(ToviData& document, const CString& record);

/// Asks the user about the file \p record, which would come together with the inspection of \p
/// document as \p merge says; that is null when the file can't be read as such a record. Nobody to
/// ask has given up.
RecordConflictAnswer AskAboutConflict(ToviData& document, const CString& record,
                                      const RecordMerge* merge);
