#include "platform/files/FolderLock.h"

#include <fcntl.h>
#include <sys/file.h>

FolderLock::FolderLock(const CString& folder)
    : opened(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
{
    if (opened.IsOpen()) flock(opened.Get(), LOCK_EX);
}
