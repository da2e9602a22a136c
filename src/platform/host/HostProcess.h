#pragma once

#include "platform/text/Export.h"

/// What every host does first: closed standard streams are taken, so that no file it opens passes
/// for one of them, and a file that would grow beyond the limit set for it fails like one on a full
/// disk in place of ending the program.
TOVI_EXPORT void PrepareHostProcess();

/// What every host asks last: false when not all that was written to standard output has arrived.
TOVI_EXPORT bool StandardOutputHasArrived();

/// What the user is told then.
inline constexpr const char* outputLost =
    "標準出力に結果を書き込めません。出力先と空き容量を確かめてください。";
