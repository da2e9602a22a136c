#pragma once

#include "platform/text/Text.h"

/// The exit statuses of tovi.
enum ExitStatus
{
    ExitDone = 0,
    ExitFailed = 1,
    ExitWrongUsage = 2,
    /// The command has done its work and found errors in the delivery.
    ExitFoundErrors = 3,
    /// Ctrl+C, as a shell tells it.
    ExitInterrupted = 130
};

/// Writes one line to standard error.
void Complain(const CString& sentence);
