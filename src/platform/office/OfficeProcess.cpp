#include "platform/office/OfficeProcess.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>
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
[[noreturn]] void BecomeProgram(pid_t parent, const ProcessFence& fence, char** command,
                                char** variables)
{
    setpgid(0, 0);
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != parent) _exit(127);
    const int nothing = open("/dev/null", O_RDWR);
    for (const int standard : {0, 1, 2}) dup2(nothing, standard);
    signal(SIGPIPE, SIG_DFL);
    fence.Enter();
    execve(command[0], command, variables);
    _exit(127);
}

/// The targets of a process's open files, such as "socket:[4711]".
std::set<std::string> OpenFiles(pid_t process)
{
    namespace fs = std::filesystem;
    std::set<std::string> targets;
    std::error_code failed;
    for (fs::directory_iterator file("/proc/" + std::to_string(process) + "/fd", failed);
         !failed && file != fs::directory_iterator(); file.increment(failed)) {
        std::error_code closed;
        targets.insert(fs::read_symlink(file->path(), closed).string());
    }
    return targets;
}
} // namespace

OfficeProcess::~OfficeProcess()
{
    if (IsRunning()) {
        FindSockets();
        Kill();
        waitpid(process, nullptr, 0);
    }
    for (const std::string& socket : sockets) unlink(socket.c_str());
}

bool OfficeProcess::Start(const std::vector<std::string>& command,
                          const std::vector<std::string>& variables, const ProcessFence& fence)
{
    const std::vector<std::string> environment = WithOwnVariables(variables);
    const std::vector<char*> arguments = PointersTo(command);
    const std::vector<char*> settings = PointersTo(environment);
    const pid_t parent = getpid();
    exitStatus = -1;
    process = fork();
    if (process == 0) {
        BecomeProgram(parent, fence, const_cast<char**>(arguments.data()),
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

void OfficeProcess::Kill() const
{
    if (process > 0) kill(process, SIGKILL);
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

void OfficeProcess::NoteSockets(const std::string& list)
{
    const std::size_t known = sockets.size();
    FindSockets();
    if (sockets.size() == known) return;
    std::ofstream file(list);
    for (const std::string& socket : sockets) file << socket << '\n';
}

void OfficeProcess::FindSockets()
{
    constexpr int fieldsBeforeInode = 6;
    const std::set<std::string> open = OpenFiles(process);
    std::ifstream table("/proc/net/unix");
    for (std::string line; std::getline(table, line);) {
        std::istringstream fields(line);
        std::string field;
        for (int i = 0; i < fieldsBeforeInode; ++i) fields >> field;
        std::string inode;
        std::string path;
        fields >> inode >> path;
        if (path.starts_with('/') && open.contains("socket:[" + inode + ']')) sockets.insert(path);
    }
}
