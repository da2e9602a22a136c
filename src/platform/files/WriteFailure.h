#pragma once

#include "platform/text/Text.h"

/// What may be written into a delivered folder.
enum class IntoDelivery
{
    /// Nothing: the rule.
    Refused,
    /// Anything: for a copy of a delivery that is being made.
    Allowed
};

/// Why a file was not written.
enum class WriteFailure
{
    None,
    /// What was to be copied isn't there, is no regular file, or can't be read to its end.
    NoSource,
    /// The disk, the quota or the largest size of a file is used up.
    NoSpace,
    /// The file or its folder is read-only to this program.
    NotWritable,
    /// A folder, a device, a pipe or a circle of links has the name.
    NotAFile,
    NoFolder,
    /// It would stand in a delivered folder, where nothing is ever written.
    InDelivery,
    /// Anything else.
    Other
};

/// What the error number \p error of a system call means for the file that was to be written.
WriteFailure FailureOf(int error);

/// The sentence for the user about the file \p path that was not written for \p failure.
TOVI_EXPORT CString WhyNotWritten(const CString& path, WriteFailure failure);
