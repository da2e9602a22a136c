#pragma once

#include "platform/Export.h"

/// What every host does first: closed standard streams are taken, so that no file it opens passes
/// for one of them.
TOVI_EXPORT void PrepareHostProcess();

/// What every host asks last: false when not all that was written to standard output has arrived.
TOVI_EXPORT bool StandardOutputHasArrived();
