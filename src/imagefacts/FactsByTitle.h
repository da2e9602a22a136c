#pragma once

#include "platform/text/Text.h"

class ToviExifInfo;

/// The value in \p exif under \p title, one of the titles that the item settings offer. They are
/// not all those of the groups. Empty when the title is unknown, \p exif isn't loaded or the value
/// isn't known. Opens no file.
CString ExifFactByTitle(const ToviExifInfo& exif, const CString& title);

/// What the file system and the header of the picture \p path say under \p title. Empty when the
/// title is unknown, there is no such file or it can't be read. Asked anew on every call.
CString FileFactByTitle(const CString& path, const CString& title);
