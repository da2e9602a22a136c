#pragma once

#include "platform/text/Text.h"

#include <memory>

class FileDescriptor;

/// Who holds a lock, in the words of a file that anybody may have written. What isn't known is
/// empty.
struct LockHolder
{
    CString program;
    /// The number of the process on its host.
    CString process;
    CString user;
    CString host;
};

/// The right to change a file, against all programs that ask for it in this way, also on other
/// computers that share the folder.
///
/// What is locked is a hidden file beside it, ".NAME.lock", which says who holds the lock and is
/// removed with it: the file itself can't carry the lock, since whoever saves puts another in its
/// place, nor can the folder on file systems of the network, nor a place outside of it for two
/// computers. The lock ends with the program, however that ends; what a kill leaves of the hidden
/// file keeps nobody out and goes with the next lock.
class TOVI_EXPORT FileLock
{
public:
    /// \p path is a full path without symbolic links (see MibTargetPath); the file needs not be
    /// there. Takes nothing yet.
    explicit FileLock(const CString& path);
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;
    ~FileLock();

    /// Takes the lock unless somebody else holds it, and never waits. False when somebody does.
    /// Where there can be no lock, in a folder that can't be or never is written (see
    /// IsInDelivery) and on a file system without locks, everybody is let in.
    bool Take();
    /// Gives the lock back, if it is held.
    void Release();
    /// Who holds the lock now, as the holder has written it down.
    LockHolder Holder() const;

private:
    /// Empty where there is never a lock.
    CString lockPath;
    std::unique_ptr<FileDescriptor> held;
};
