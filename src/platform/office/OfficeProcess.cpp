#include "platform/office/OfficeProcess.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <thread>

namespace
{
constexpr auto endPause = std::chrono::milliseconds(10);

std::vector<char*> PointersTo(const std::vector<std::string>& texts)
{
    std::vector<char*> pointers;
    for (const std::string& text : texts) pointers.push_back(const_cast<char*>(text.c_str()));
    pointers.push_back(nullptr);
    return pointers;
}

/// Whoever looks a variable up takes the first one of its name.
std::vector<std::string> WithOwnVariables(std::vector<std::string> variables)
{
    for (char** variable = environ; *variable != nullptr; ++variable) {
        variables.emplace_back(*variable);
    }
    return variables;
}

/// What the child does before it becomes the program. Other threads may hold any lock of the
/// parent, so it makes system calls only.
[[noreturn]] void BecomeProgram(pid_t parent, int descriptor, char** command, char** variables)
{
    setpgid(0, 0);
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != parent) _exit(127);
    const int nothing = open("/dev/null", O_RDWR);
    for (const int standard : {0, 1, 2}) dup2(nothing, standard);
    fcntl(descriptor, F_SETFD, 0);
    signal(SIGPIPE, SIG_DFL);
    execve(command[0], command, variables);
    _exit(127);
}
} // namespace

OfficeProcess::~OfficeProcess()
{
    if (!IsRunning()) return;
    kill(process, SIGKILL);
    waitpid(process, nullptr, 0);
}

bool OfficeProcess::Start(const std::vector<std::string>& command,
                          const std::vector<std::string>& variables,
                          const FileDescriptor& descriptor)
{
    const std::vector<std::string> environment = WithOwnVariables(variables);
    const std::vector<char*> arguments = PointersTo(command);
    const std::vector<char*> settings = PointersTo(environment);
    const pid_t parent = getpid();
    exitStatus = -1;
    process = fork();
    if (process == 0) {
        BecomeProgram(parent, descriptor.Get(), const_cast<char**>(arguments.data()),
                      const_cast<char**>(settings.data()));
    }
    return process > 0;
}

bool OfficeProcess::IsRunning()
{
    if (process <= 0) return false;
    int status = 0;
    if (waitpid(process, &status, WNOHANG) == 0) return true;
    process = -1;
    if (WIFEXITED(status)) exitStatus = WEXITSTATUS(status);
    return false;
}

bool OfficeProcess::WaitForEnd(std::chrono::milliseconds limit)
{
    const auto end = std::chrono::steady_clock::now() + limit;
    while (IsRunning()) {
        if (std::chrono::steady_clock::now() >= end) return false;
        std::this_thread::sleep_for(endPause);
    }
    return true;
}
