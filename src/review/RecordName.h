#pragma once

#include "platform/text/Text.h"

/// The path that is proposed for the record of an inspection: in \p folder (without a separator at
/// its end), named after the work \p title. What no file name may hold, and what would make it
/// longer than a file system takes, is left out.
TOVI_EXPORT CString ProposedRecordPath(const CString& folder, const CString& title);

/// The same for the check report, without an ending: the name has no point, so that what follows
/// one is never taken for the ending.
TOVI_EXPORT CString ProposedReportPath(const CString& folder, const CString& title);

/// The path beside the record \p path that is proposed for a second one: its name with the first
/// number, from 2 on, that no file has.
CString ProposedOtherPath(const CString& path);
