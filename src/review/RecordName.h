#pragma once

#include "platform/Text.h"

/// The path that is proposed for the record of an inspection: in \p folder (without a separator at
/// its end), named after the work \p title. What no file name may hold, and what would make it
/// longer than a file system takes, is left out.
TOVI_EXPORT CString ProposedRecordPath(const CString& folder, const CString& title);
