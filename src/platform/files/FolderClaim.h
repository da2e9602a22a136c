#pragma once

#include "platform/text/Text.h"

#include <memory>

class FileDescriptor;

/// Claims a folder for whoever holds the object, in this program or another; the claim ends with
/// the object or the program. A file system without locks lets everybody in.
class TOVI_EXPORT FolderClaim
{
public:
    /// Claims \p folder if it is there and nobody else has claimed it.
    explicit FolderClaim(const CString& folder);
    FolderClaim(const FolderClaim&) = delete;
    FolderClaim& operator=(const FolderClaim&) = delete;
    ~FolderClaim();

    /// True when somebody else had claimed it.
    bool IsOthers() const { return others; }

private:
    std::unique_ptr<FileDescriptor> opened;
    bool others = false;
};
