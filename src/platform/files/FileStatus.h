#pragma once

#include "platform/text/Text.h"

#include <cstdint>
#include <ctime>
#include <optional>

/// What the file system says of a regular file.
struct FileStatus
{
    std::uint64_t size = 0;
    /// The time of its making, or where the file system keeps none, that of the last change of its
    /// facts.
    std::time_t created = 0;
    std::time_t lastWritten = 0;
    /// Its owner may not write it.
    bool isReadOnly = false;
    /// Its name begins with a dot.
    bool isHidden = false;
};

/// The status of the regular file \p path; nothing when there is none or it can't be had.
std::optional<FileStatus> ReadFileStatus(const CString& path);

/// \p time as local time in the form "2024/05/01 12:34:56"; empty when it lies outside the
/// calendar.
CString LocalTimeText(std::time_t time);
