#pragma once

#include "platform/text/Text.h"

/// The path under which \p path really exists: \p path itself when it does, else the one that
/// differs from it only in letter case, found name by name from the root down. Empty when there is
/// none.
///
/// Deliveries come from a system without letter case and arrive as "PHOTO.XML", "photo.xml" or
/// "Photo.Xml". A folder is listed once and the listing kept while the folder is unchanged. Several
/// threads may call this.
CString ExistingPath(const CString& path);

/// The names in \p folder in the order of their bytes, without "." and ".."; those of them that can
/// be had. \p isWhole, unless null, tells whether these are all, as they are where there is no
/// folder.
CStringArray ListFolder(const CString& folder, bool* isWhole = nullptr);
