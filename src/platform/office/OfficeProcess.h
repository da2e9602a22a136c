#pragma once

#include "platform/FileDescriptor.h"

#include <sys/types.h>

#include <chrono>
#include <string>
#include <vector>

/// A child process that never outlives this one, whatever ends it, and that an interrupt from the
/// terminal doesn't reach. It has no input and nobody reads its output.
class OfficeProcess
{
public:
    OfficeProcess() = default;
    OfficeProcess(const OfficeProcess&) = delete;
    OfficeProcess& operator=(const OfficeProcess&) = delete;
    /// Kills it, if it is still there.
    ~OfficeProcess();

    /// Starts \p command, a full path and its arguments, with \p variables ("NAME=value") before
    /// those of this process. It inherits \p descriptor under the same number.
    bool Start(const std::vector<std::string>& command, const std::vector<std::string>& variables,
               const FileDescriptor& descriptor);
    bool IsRunning();
    /// The exit status of a process that has ended by itself, else -1.
    int ExitStatus() const { return exitStatus; }
    /// True when it has ended within \p limit.
    bool WaitForEnd(std::chrono::milliseconds limit);

private:
    pid_t process = -1;
    int exitStatus = -1;
};
