#pragma once

#include "platform/files/FileLock.h"

#include <chrono>

/// The right to change the inspection record \p path from before it is loaded until it is saved,
/// so that of programs that label at once none takes away what another has done.
class TOVI_EXPORT RecordHold
{
public:
    enum class Outcome
    {
        Held,
        /// Somebody else held it all the time.
        Others,
        /// The user didn't want to wait any longer.
        Cancelled
    };

    explicit RecordHold(const CString& path);

    /// Takes the right. Waits for somebody who holds it, in view of the user once that takes its
    /// time, but no longer than \p limit.
    Outcome Take(std::chrono::milliseconds limit = std::chrono::seconds(30));
    /// Gives the right back before the end of the object's life.
    void Release() { lock.Release(); }

    /// The file to load from and to save to: the one that symbolic links lead to, the path as it
    /// was given where there is no such folder.
    const CString& Target() const { return target; }
    LockHolder Holder() const { return lock.Holder(); }

private:
    CString target;
    FileLock lock;
};
