#pragma once

#include "platform/Text.h"

/// Why a file was not written.
enum class WriteFailure
{
    None,
    /// The disk, the quota or the largest size of a file is used up.
    NoSpace,
    /// The file or its folder is read-only to this program, or the path is no file's.
    NotWritable,
    /// Anything else, such as a folder that isn't there.
    Other
};

/// Why the file \p path could not be replaced, as far as that can be told without writing.
TOVI_EXPORT WriteFailure WhyNotReplaceable(const CString& path);

/// Makes \p bytes the whole content of the file \p path, which is created when it is missing and
/// keeps its permissions when it is not. The bytes are written beside the file, flushed to the disk
/// and renamed over it, so that after a crash, a kill or a full disk either the old or the new file
/// is there whole. A symbolic link is replaced, never followed to what it points at. False when it
/// failed: the old file is untouched, and \p failure, if not null, tells why.
[[nodiscard]] TOVI_EXPORT bool WriteFileAtomically(const CString& path, std::string_view bytes,
                                                   WriteFailure* failure = nullptr);
