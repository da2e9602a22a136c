#pragma once

#include "history/HistoryFile.h"
#include "platform/files/FileLock.h"

/// What the user is asked before an inspection begins or goes on. Nobody to ask refuses.

enum class OthersInspection
{
    /// To see how far the other program has come, and change nothing.
    Look,
    /// To go on with it here, and nowhere else.
    TakeOver
};
/// About a delivery that \p holder inspects.
OthersInspection AskAboutOthers(const LockHolder& holder);

/// What to begin with.
struct InspectionStart
{
    /// The place among the past inspections of the one to go on with, or -1 for a new one.
    int past = -1;
    /// The record to take up first; empty for none.
    CString record;
};
/// About the inspections \p past, the latest first and at least one, of which none is lost whatever
/// the answer. \p named is the record that the user wants to take up instead, or empty.
InspectionStart AskAboutPast(const std::vector<PastInspection>& past, const CString& named);

/// How far \p reviews are, and when that was: 「OK 210、NG 5、未検査 120、11月20日 17:32」.
TOVI_EXPORT CString FactsOf(const PhotoReviews& reviews, std::int64_t time);
