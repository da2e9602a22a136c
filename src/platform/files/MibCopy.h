#pragma once

#include "platform/files/WriteFailure.h"
#include "platform/text/Text.h"

#include <functional>

/// Copying and removing files. What is read is found without regard to letter case, as in
/// platform/files/MibFile.h; what is written gets exactly the name that is given.

/// Why a file was not copied; Other also for a target that is the source itself.
using CopyFailure = WriteFailure;

/// The common copy rule: \p to becomes a copy of the file \p from, with its bytes, its file times
/// and its permissions. A file of that name is replaced, and stays whole when the copy fails;
/// through a symbolic link that is done to what it points at. Times and permissions that the
/// target's file system can't keep are no failure. Only with \p intoDelivery does it write into a
/// delivered folder.
[[nodiscard]] TOVI_EXPORT CopyFailure MibCopyFileEx(
    const CString& from, const CString& to, IntoDelivery intoDelivery = IntoDelivery::Refused);

/// Copies the file \p from by the same rule into the folder \p to under its own name. False when
/// that failed, or when there is a file of that name already and not \p overwrite.
TOVI_EXPORT bool MibFileDirCopy(const CString& from, const CString& to, bool overwrite,
                                IntoDelivery intoDelivery = IntoDelivery::Refused);

/// Puts the full paths of the regular files right in \p folder, symbolic links left out, into \p
/// files; none for a folder that isn't there. False when the listing broke off in the middle.
bool MibListFiles(const CString& folder, CStringArray& files);

/// Deletes the folder \p path: with \p contents all that is in it, links as such; without, only an
/// empty one. True when it isn't there afterwards.
TOVI_EXPORT bool MibRemoveDirectory(const CString& path, bool contents);

/// Copies what is in one folder, with all folders below, into another, file by file by the common
/// copy rule. A name that the target has in another letter case goes on meaning the same file or
/// folder. Links, pipes and devices are left out. What is copied may be a delivery.
class TOVI_EXPORT MibDeepCopyDirectory
{
public:
    MibDeepCopyDirectory(CString from, CString to);

    /// The number of files to copy, as far as they can be listed.
    int CountFiles() const;
    /// Asks \p goOn (may be empty) before each file. False as soon as that says no or anything
    /// can't be copied, with what was copied left in its place; false at once when the target lies
    /// inside the source.
    [[nodiscard]] bool Execute(const std::function<bool()>& goOn = {});

private:
    CString source;
    CString target;
};
