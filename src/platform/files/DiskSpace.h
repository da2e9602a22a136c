#pragma once

#include "platform/text/Text.h"

#include <cstdint>
#include <functional>

/// Answers how many bytes a volume has free for this user, asked by a folder on it.
using FreeSpaceQuery = std::function<std::uint64_t(const CString& folder)>;

/// The free bytes of the volume of \p folder (empty: the current folder); 0 when it can't be told.
TOVI_EXPORT std::uint64_t FreeSpace(const CString& folder);

/// Has \p query answer in place of the system; an empty one gives the word back to the system.
TOVI_EXPORT void SetFreeSpaceQuery(FreeSpaceQuery query);
