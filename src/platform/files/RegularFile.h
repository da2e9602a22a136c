#pragma once

#include "platform/files/FileDescriptor.h"
#include "platform/text/Text.h"

#include <sys/stat.h>

#include <cstdint>

/// A regular file that is open for reading, the one way in which files are read. It is judged by
/// what was opened: whatever the path was when somebody looked at it, it can be a pipe by now,
/// whose writer never comes, or a device.
class RegularFile
{
public:
    /// Opens the file \p path, or one whose name differs only in letter case.
    explicit RegularFile(const CString& path);

    /// False when there is no such file, when it can't be read, or when it is something else.
    bool IsOpen() const { return file.IsOpen(); }
    int Descriptor() const { return file.Get(); }
    /// What the file system says of it; of use while it is open.
    const struct stat& Facts() const { return facts; }
    std::uint64_t Size() const { return static_cast<std::uint64_t>(facts.st_size); }

    /// Reads the next \p size bytes to \p to. Returns their number, less than that only at the end
    /// of the file, below 0 when it can't be read.
    ssize_t Read(char* to, std::size_t size) const;

private:
    FileDescriptor file;
    struct stat facts = {};
};
