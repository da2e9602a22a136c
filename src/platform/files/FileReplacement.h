#pragma once

#include "platform/files/FileDescriptor.h"
#include "platform/text/Text.h"

#include <sys/stat.h>

/// New content on its way to the file \p path: written beside it under a name of its own and
/// renamed over it, so that the file is there whole at every moment, the old one or the new one.
/// What was not placed is gone at the end of the object's life; what a program that was killed has
/// left in the folder is removed by the next one that writes there. The operations return 0 or an
/// error number.
class FileReplacement
{
public:
    explicit FileReplacement(const CString& path);
    FileReplacement(const FileReplacement&) = delete;
    FileReplacement& operator=(const FileReplacement&) = delete;
    ~FileReplacement();

    /// Makes the new file, empty, with \p permissions as far as the process lets files have them.
    int Open(mode_t permissions);
    /// The new file's descriptor once it is open.
    int Descriptor() const { return file.Get(); }
    int Append(std::string_view bytes);
    /// Waits until the content is on the disk.
    int Flush();
    /// Takes over owner, group and permissions.
    int LookLike(const struct stat& old);
    /// Closes the new file and puts it in its place. A symbolic link there is replaced, never
    /// followed.
    int Place();
    /// Waits until the name of the file that was placed is on the disk, as far as that can be had.
    void FlushFolder();

private:
    CString target;
    CString folder;
    CString temporary;
    FileDescriptor file;
};
