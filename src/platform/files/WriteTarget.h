#pragma once

#include "platform/files/WriteFailure.h"
#include "platform/text/Text.h"

#include <sys/stat.h>

/// Where the content for a path goes.
struct WriteTarget
{
    /// The folder of the file as system calls take it.
    CString Folder() const;

    /// The path that the last of its symbolic links leads to.
    CString path;
    bool exists = false;
    /// Of the file that is there.
    struct stat facts = {};
};

/// Finds out where a file \p path is to be written. What isn't None is why nothing is ever written
/// there.
WriteFailure FindWriteTarget(const CString& path, IntoDelivery intoDelivery, WriteTarget& target);
