#pragma once

#include "platform/text/Text.h"

#include <ctime>

/// The names under which new files come into being beside the ones they will replace. Whoever makes
/// a file of such a name holds a lock on it until it has another one or is gone.

/// A name that this program has not used yet, in any of its threads.
CString NewTemporaryName();

/// Removes from \p folder what programs have left there that were killed: files with such names
/// that nobody holds a lock on. Where programs of another machine may be at work, whose locks need
/// not show here, a file counts as left only when it was unchanged for a day at the time \p now of
/// the folder's own file system.
void RemoveLeftTemporaries(const CString& folder, std::time_t now);
