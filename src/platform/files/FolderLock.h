#pragma once

#include "platform/files/FileDescriptor.h"
#include "platform/text/Text.h"

/// Keeps other programs that lock the same folder waiting as long as it lives. A folder that isn't
/// there, or a file system without locks, locks nothing.
class FolderLock
{
public:
    explicit FolderLock(const CString& folder);

private:
    FileDescriptor opened;
};
