#include "platform/files/FolderClaim.h"

#include "platform/files/FileDescriptor.h"

#include <fcntl.h>
#include <sys/file.h>

FolderClaim::FolderClaim(const CString& folder)
    : opened(std::make_unique<FileDescriptor>(
          open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)))
{
    others =
        opened->IsOpen() && flock(opened->Get(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
}

FolderClaim::~FolderClaim() = default;
