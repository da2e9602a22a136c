#include "platform/fence/ProcessFence.h"
#include "platform/host/HostServices.h"
#include "platform/office/OfficeProcess.h"
#include "support/TempFolder.h"

#include <gmock/gmock.h>

#include <fcntl.h>
#include <linux/landlock.h>
#include <signal.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <functional>
#include <thread>

namespace
{
using namespace std::chrono_literals;
using testing::HasSubstr;

constexpr int done = 0;

bool HasLandlock()
{
    return syscall(SYS_landlock_create_ruleset, nullptr, 0, LANDLOCK_CREATE_RULESET_VERSION) > 0;
}

/// What a process behind the fence gets for \p attempt, a call that gives -1 when it is refused:
/// done or the error.
int Outcome(const ProcessFence& fence, const std::function<long()>& attempt)
{
    const pid_t child = fork();
    if (child == 0) {
        fence.Enter();
        _exit(attempt() == -1 ? errno : done);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

long Spawn(const char* program)
{
    pid_t child = 0;
    char* const arguments[] = {const_cast<char*>(program), nullptr};
    errno = posix_spawn(&child, program, nullptr, nullptr, arguments, nullptr);
    if (errno != 0) return -1;
    waitpid(child, nullptr, 0);
    return 0;
}

struct Attempt
{
    const char* what;
    std::function<long()> call;
    int expected;
    /// Refused by Landlock alone, which not every kernel has.
    bool takesLandlock = false;
};

void ExpectAll(const ProcessFence& fence, const std::vector<Attempt>& attempts)
{
    for (const Attempt& attempt : attempts) {
        if (attempt.takesLandlock && !HasLandlock()) continue;
        EXPECT_EQ(Outcome(fence, attempt.call), attempt.expected) << attempt.what;
    }
}

class Fence : public testing::Test
{
protected:
    TempFolder temp;
    const CString font = temp.Write("fonts/font", "text");
    const CString other = temp.Write("other/photograph", "text");
    const CString created = temp.Path("fonts/new");

    std::function<long()> Opening(const CString& path, int flags) const
    {
        return [=] { return open(path.c_str(), flags, 0600); };
    }
};

TEST_F(Fence, AloneNothingIsLeftButReading)
{
    const ProcessFence fence({.readable = {temp.Path("fonts"), "/nowhere", "/usr", "/lib"}});
    ExpectAll(fence,
              {
                  {"read a font", Opening(font, O_RDONLY), done},
                  {"read elsewhere", Opening(other, O_RDONLY), EACCES, true},
                  {"list elsewhere", Opening(temp.Path(), O_RDONLY | O_DIRECTORY), EACCES, true},
                  {"write", Opening(font, O_WRONLY), EPERM},
                  {"cut", Opening(font, O_RDONLY | O_TRUNC), EPERM},
                  {"create", Opening(created, O_RDONLY | O_CREAT), EPERM},
                  {"remove", [this] { return unlink(font.c_str()); }, EPERM},
                  {"connect here", [] { return socket(AF_UNIX, SOCK_STREAM, 0); }, EPERM},
                  {"connect", [] { return socket(AF_INET, SOCK_STREAM, 0); }, EPERM},
                  {"run", [] { return execl("/bin/true", "true", nullptr); }, EPERM},
                  {"spawn", [] { return Spawn("/bin/true"); }, EPERM},
                  {"fork", [] { return long{fork()}; }, EPERM},
                  {"kill", [] { return kill(getppid(), 0); }, EPERM},
                  {"have threads", [] { return std::thread([] {}).join(), 0; }, done},
              });
}

TEST_F(Fence, OfficeReachesItsFolderAndNoNetwork)
{
    const ProcessFence fence({.readable = {"/usr", "/lib", "/lib64"},
                              .writable = {temp.Path("fonts"), "/dev/null"},
                              .socketFolders = {temp.Path("other")},
                              .mayStartPrograms = true});
    const auto listening = [this](const char* name) {
        return [path = temp.Path(name)] { return mknod(path.c_str(), S_IFSOCK | 0600, 0); };
    };
    ExpectAll(fence,
              {
                  {"write", Opening(font, O_RDWR | O_TRUNC), done},
                  {"create", Opening(created, O_WRONLY | O_CREAT), done},
                  {"remove", [this] { return unlink(created.c_str()); }, done},
                  {"write nowhere", Opening("/dev/null", O_WRONLY), done},
                  {"write elsewhere", Opening(other, O_WRONLY), EACCES, true},
                  {"read elsewhere", Opening(other, O_RDONLY), EACCES, true},
                  {"listen", listening("other/socket"), done},
                  {"listen elsewhere", listening("socket"), EACCES, true},
                  {"connect", [] { return socket(AF_INET, SOCK_STREAM, 0); }, EAFNOSUPPORT},
                  {"connect newly", [] { return socket(AF_INET6, SOCK_DGRAM, 0); }, EAFNOSUPPORT},
                  {"run", [] { return Spawn("/bin/true"); }, done},
              });
}

CString StatusOf(pid_t process)
{
    std::ifstream file("/proc/" + std::to_string(process) + "/status");
    return {std::istreambuf_iterator<char>(file), {}};
}

TEST_F(Fence, StandsAroundTheDrawingProgramBeforeItReads)
{
    int ends[2];
    ASSERT_EQ(pipe2(ends, O_CLOEXEC), 0);
    const CString own = RunningProgramPath();
    const CString program = own.substr(0, own.rfind('/') + 1) + "tovi-svg";
    const pid_t child = fork();
    if (child == 0) {
        dup2(ends[0], STDIN_FILENO);
        execl(program.c_str(), "tovi-svg", "0", "0", nullptr);
        _exit(127);
    }
    CString status;
    for (int i = 0; i < 1000 && status.find("Seccomp:\t2") == CString::npos; ++i) {
        std::this_thread::sleep_for(10ms);
        status = StatusOf(child);
    }
    EXPECT_THAT(status, HasSubstr("Seccomp:\t2"));
    EXPECT_THAT(status, HasSubstr("NoNewPrivs:\t1"));
    close(ends[0]);
    close(ends[1]);
    waitpid(child, nullptr, 0);
}

TEST_F(Fence, StandsAroundTheOffice)
{
    const CString folder = temp.MakeFolder("own");
    const ProcessFence fence({.readable = {"/usr", "/lib", "/lib64", "/proc"},
                              .writable = {folder},
                              .mayStartPrograms = true});
    OfficeProcess process;
    ASSERT_TRUE(process.Start({"/bin/cp", "/proc/self/status", folder}, {}, fence));
    EXPECT_TRUE(process.WaitForEnd(10s));
    EXPECT_THAT(temp.Read("own/status"), HasSubstr("Seccomp:\t2"));
    EXPECT_THAT(temp.Read("own/status"), HasSubstr("NoNewPrivs:\t1"));
}
} // namespace
