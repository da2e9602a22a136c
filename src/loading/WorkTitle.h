#pragma once

#include "platform/text/Text.h"

/// The 工事名称 (by the older standards 工事件名等) that the index file in the folder \p parentPath
/// gives; empty when there is no index file, or none that can be read or names the work.
TOVI_EXPORT CString ReadWorkTitle(const CString& parentPath);
