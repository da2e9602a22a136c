#pragma once

#include "platform/text/Text.h"

#include <memory>

class FileDescriptor;

/// The file of a run's folder that names the sockets, outside of it, that go with it if the run is
/// killed: full paths, a line each.
inline constexpr const char* socketListName = "sockets";

/// A folder that this run has for itself inside another that all runs share. What a run that was
/// killed has left there is removed by the next one; several runs at once don't see each other.
class TOVI_EXPORT RunFolder
{
public:
    /// Makes the folder in \p shared, which is made too where it is missing. An empty
    /// one makes none.
    explicit RunFolder(const CString& shared);
    RunFolder(const RunFolder&) = delete;
    RunFolder& operator=(const RunFolder&) = delete;
    /// Removes the folder with all that is in it, and \p shared when nothing else is there.
    ~RunFolder();

    /// The full path without a trailing separator; empty when the folder couldn't be made.
    const CString& Path() const { return path; }

private:
    CString sharedFolder;
    CString path;
    /// Locked, which tells the others that the run lives.
    std::unique_ptr<FileDescriptor> opened;
};
