#pragma once

#include "platform/files/WriteFailure.h"
#include "platform/text/Text.h"

#include <functional>

/// Why the file \p path could not be replaced, as far as that can be told without writing.
TOVI_EXPORT WriteFailure WhyNotReplaceable(const CString& path);

/// The sentence for the user about the file \p path that could not be written just now, as far as
/// the reason can still be told.
TOVI_EXPORT CString WhyNotReplaced(const CString& path);

/// Makes \p bytes the whole content of the file \p path, which is created when it is missing and
/// keeps its permissions when it is not. The bytes are written beside the file, flushed to the disk
/// and renamed over it, so that after a crash, a kill or a full disk either the old or the new file
/// is there whole. Through a symbolic link that is done to what it points at. Nothing but a regular
/// file is ever replaced, and nothing written into a delivered folder. False when it failed: the
/// old file is untouched, and \p failure, if not null, tells why.
[[nodiscard]] TOVI_EXPORT bool WriteFileAtomically(const CString& path, std::string_view bytes,
                                                   WriteFailure* failure = nullptr);

/// Takes the next bytes of a content. False when there is no use in further ones.
using ByteSink = std::function<bool(std::string_view bytes)>;

/// The same with what \p produce hands to its sink, for a content that need not be in memory whole.
/// Where \p produce returns false the old file stays, too, and \p failure is None.
[[nodiscard]] TOVI_EXPORT bool
WriteFileAtomically(const CString& path, const std::function<bool(const ByteSink&)>& produce,
                    WriteFailure* failure = nullptr);

/// The same for a file of our own making in the work area: a symbolic link of its name, which is
/// none of ours, gives way and is never followed.
[[nodiscard]] TOVI_EXPORT bool WriteWorkFile(const CString& path, std::string_view bytes);
