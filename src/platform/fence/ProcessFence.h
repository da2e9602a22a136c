#pragma once

#include <memory>
#include <string>
#include <vector>

/// What a process keeps that works on what nobody trusts.
struct FencePlan
{
    /// Folders and files, by full path, that it reads; what isn't there is left out.
    std::vector<std::string> readable = {};
    /// Folders and files that it changes as well. None also means: no file at all is opened for
    /// writing or changed.
    std::vector<std::string> writable = {};
    /// Folders in which it makes local sockets.
    std::vector<std::string> socketFolders = {};
    /// It starts programs and uses local sockets. Nothing uses any other socket.
    bool mayStartPrograms = false;
};

/// A fence around the process that enters it, and around all that it starts from then on: no
/// network, no new rights, none but the files of the plan, no look into other processes.
///
/// Where the kernel has no Landlock every file stays in sight, and where it takes no filter for
/// system calls the network does. Whatever can be had is had, silently.
class ProcessFence
{
public:
    explicit ProcessFence(const FencePlan& plan);
    ProcessFence(const ProcessFence&) = delete;
    ProcessFence& operator=(const ProcessFence&) = delete;
    ~ProcessFence();

    /// Enters for good, with "/" as the current folder. Makes system calls only, so that a child
    /// may do it between fork and exec.
    void Enter() const;

private:
    struct Parts;
    std::unique_ptr<const Parts> parts;
};
