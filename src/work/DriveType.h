#pragma once

#include "platform/text/Text.h"

/// The type of the drive that holds \p path: 0 unknown, 1 no root, 2 removable, 3 fixed, 4 remote,
/// 5 optical, 6 RAM disk. 0 for a path without a root: null, empty or relative.
TOVI_EXPORT unsigned int ToviGetDriveType(const char* path);

/// True when \p path lies on a disc or a stick, which the user may take out.
TOVI_EXPORT bool IsOnDisc(const CString& path);

/// Puts into \p out the network name of \p path on a mapped network drive, in upper case if
/// \p upper is set, and returns 1. Returns 0 and leaves \p out alone when the path lies on none:
/// always on this platform, which has no drive letters to map.
TOVI_EXPORT int ToviGetUniversalName(const char* path, CString& out, bool upper);
