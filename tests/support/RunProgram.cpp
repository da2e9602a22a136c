#include "support/RunProgram.h"

#include "platform/host/HostServices.h"
#include "support/TempFolder.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>

namespace
{
void Redirect(int descriptor, const CString& path, int flags)
{
    dup2(open(path.c_str(), flags, 0600), descriptor);
}
/// Starts the program with its output going into \p folder.
pid_t Start(const std::vector<CString>& arguments, const CString& configFolder,
            const TempFolder& folder)
{
    const CString program = RunningProgramPath();
    const CString& name = arguments.front();
    const bool isFullPath = name.starts_with('/');
    const CString path = isFullPath ? name : program.substr(0, program.rfind('/') + 1) + name;
    std::vector<char*> argv;
    for (const CString& argument : arguments) argv.push_back(const_cast<char*>(argument.c_str()));
    argv.push_back(nullptr);
    const pid_t child = fork();
    if (child == 0) {
        Redirect(0, "/dev/null", O_RDONLY);
        Redirect(1, folder.Path("out"), O_WRONLY | O_CREAT);
        Redirect(2, folder.Path("err"), O_WRONLY | O_CREAT);
        setenv("XDG_CONFIG_HOME", configFolder.c_str(), 1);
        setenv("XDG_CACHE_HOME", (configFolder + "/cache").c_str(), 1);
        execv(path.c_str(), argv.data());
        _exit(127);
    }
    return child;
}
} // namespace

ProgramResult RunProgram(const std::vector<CString>& arguments, const CString& configFolder)
{
    const TempFolder temp;
    int status = 0;
    waitpid(Start(arguments, configFolder, temp), &status, 0);
    const int code = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    return {code, temp.Read("out"), temp.Read("err")};
}
