#pragma once

#include "platform/text/Text.h"

/// Copies the file \p path into the folder of this run, which goes with the run, under a name that
/// ends in its own, so that other programs can open the copy and nothing that they do reaches the
/// file itself. The copy is nobody's to write. Returns its full path; empty when it couldn't be
/// made.
TOVI_EXPORT CString MakeReadOnlyCopy(const CString& path);
