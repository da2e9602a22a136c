#pragma once

#include "items/ToviTextPair.h"
#include "platform/files/FileStatus.h"
#include "platform/text/Text.h"

#include <optional>

class ToviExifInfo;

/// The value in \p exif under \p title, one of the titles that the item settings offer. They are
/// not all those of the groups. Empty when the title is unknown, \p exif isn't loaded or the value
/// isn't known. Opens no file.
CString ExifFactByTitle(const ToviExifInfo& exif, const CString& title);

/// What the file system and the header of a picture say, each asked once, when it is first needed.
class TOVI_EXPORT FileFacts
{
public:
    /// Of the file \p picture.
    explicit FileFacts(CString picture) : path(std::move(picture)) {}

    /// The value under \p title. Empty when the title is unknown, there is no such file or it can't
    /// be read.
    CString ByTitle(const CString& title);
    /// All titles with their values.
    ToviTextPairArray All();

    struct Size
    {
        int width = 0;
        int height = 0;
        bool known = false;
    };
    /// The dimensions in the header.
    const Size& PictureSize();

private:
    CString path;
    std::optional<std::optional<FileStatus>> status;
    std::optional<Size> size;
};
