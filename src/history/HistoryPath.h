#pragma once

#include "platform/text/Text.h"

/// The folder of all histories of this user; it needs not be there.
CString FolderOfHistories();

/// The path of the history of all deliveries with the same PHOTO.XML as the one in \p photoFolder,
/// wherever they lie; empty when there is no such file or this user has no folder for it.
TOVI_EXPORT CString HistoryPathOf(const CString& photoFolder);
