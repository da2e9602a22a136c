#pragma once

#include "platform/fence/ProcessFence.h"

#include <sys/types.h>

#include <chrono>
#include <set>
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
    /// those of this process, behind \p fence.
    bool Start(const std::vector<std::string>& command, const std::vector<std::string>& variables,
               const ProcessFence& fence);
    /// Notes the sockets that it has bound. They are removed after its end, which it doesn't do
    /// itself when it is killed. Their paths stand in the file \p list from then on, a line each,
    /// for whoever clears up behind this process.
    void NoteSockets(const std::string& list);
    bool IsRunning();
    /// Kills it at once; its end is noted by IsRunning.
    void Kill() const;
    /// The exit status of a process that has ended by itself, else -1.
    int ExitStatus() const { return exitStatus; }
    /// True when it has ended within \p limit.
    bool WaitForEnd(std::chrono::milliseconds limit);

private:
    void FindSockets();

    pid_t process = -1;
    int exitStatus = -1;
    std::set<std::string> sockets;
};
