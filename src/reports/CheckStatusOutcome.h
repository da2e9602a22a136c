#pragma once

#include "platform/files/AtomicFile.h"
#include "platform/sheets/SpreadsheetApplication.h"

/// How a check report ended.
enum class CheckStatusOutcome
{
    Written,
    /// The user has cancelled it.
    Cancelled,
    /// The spreadsheet application isn't installed or doesn't start.
    NotStarted,
    /// The form isn't in the program's folder.
    NoForm,
    NoWorkFolder,
    /// The output would stand in the delivery's folder, where nothing is ever written.
    InDelivery,
    /// Another program has the output open.
    OutputOpen,
    OutputReadOnly,
    /// A sheet of this format has fewer rows.
    TooManyPhotos,
    /// The spreadsheet application has died or refused something.
    ApplicationFailed,
    NoSpace,
    NotWritten
};

/// The message that the user gets for \p outcome, which names no cause.
TOVI_EXPORT CString MessageOf(CheckStatusOutcome outcome);

/// The outcome of writing the output.
CheckStatusOutcome OutcomeOf(WriteFailure failure);

/// The format that the ending of \p path stands for: Excel's old one unless it is that of another.
TOVI_EXPORT SpreadsheetFormat FormatOfReport(const CString& path);
