#include "platform/fence/ProcessFence.h"

#include "platform/files/FileDescriptor.h"

#include <fcntl.h>
#include <linux/filter.h>
#include <linux/landlock.h>
#include <linux/seccomp.h>
#include <sched.h>
#include <seccomp.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>

#include <cstdint>

namespace
{
// What the headers of older systems don't name yet.
constexpr std::uint64_t truncatingFiles = 1U << 14;
constexpr std::uint64_t controllingDevices = 1U << 15;
constexpr std::uint64_t allScopes = 3;

struct LandlockRules
{
    std::uint64_t files;
    std::uint64_t network;
    std::uint64_t scopes;
};

constexpr std::uint64_t reading = LANDLOCK_ACCESS_FS_READ_FILE | LANDLOCK_ACCESS_FS_READ_DIR;
constexpr std::uint64_t makingSockets =
    LANDLOCK_ACCESS_FS_MAKE_SOCK | LANDLOCK_ACCESS_FS_REMOVE_FILE;
constexpr std::uint64_t ofOneFile = LANDLOCK_ACCESS_FS_EXECUTE | LANDLOCK_ACCESS_FS_READ_FILE |
                                    LANDLOCK_ACCESS_FS_WRITE_FILE | truncatingFiles |
                                    controllingDevices;

/// The rights to files that a Landlock of \p version governs.
std::uint64_t FileRights(long version)
{
    std::uint64_t rights = (LANDLOCK_ACCESS_FS_MAKE_SYM << 1) - 1;
    if (version >= 2) rights |= LANDLOCK_ACCESS_FS_REFER;
    if (version >= 3) rights |= truncatingFiles;
    if (version >= 5) rights |= controllingDevices;
    return rights;
}

void Allow(int ruleset, const std::vector<std::string>& paths, std::uint64_t rights)
{
    for (const std::string& path : paths) {
        const FileDescriptor opened(open(path.c_str(), O_PATH | O_CLOEXEC));
        struct stat facts;
        if (!opened.IsOpen() || fstat(opened.Get(), &facts) != 0) continue;
        const std::uint64_t allowed = S_ISDIR(facts.st_mode) ? rights : rights & ofOneFile;
        const landlock_path_beneath_attr rule = {allowed, opened.Get()};
        syscall(SYS_landlock_add_rule, ruleset, LANDLOCK_RULE_PATH_BENEATH, &rule, 0);
    }
}

/// The descriptor of the rules; below 0 without Landlock.
int MakeRuleset(const FencePlan& plan)
{
    const long version =
        syscall(SYS_landlock_create_ruleset, nullptr, 0, LANDLOCK_CREATE_RULESET_VERSION);
    if (version < 1) return -1;
    const std::uint64_t rights = FileRights(version);
    const LandlockRules rules = {rights, 0, version >= 6 ? allScopes : 0};
    const int ruleset =
        static_cast<int>(syscall(SYS_landlock_create_ruleset, &rules, sizeof rules, 0));
    if (ruleset < 0) return -1;
    const std::uint64_t running = plan.mayStartPrograms ? LANDLOCK_ACCESS_FS_EXECUTE : 0;
    Allow(ruleset, plan.readable, reading | running);
    Allow(ruleset, plan.writable, rights & ~std::uint64_t{LANDLOCK_ACCESS_FS_EXECUTE});
    Allow(ruleset, plan.socketFolders, makingSockets);
    return ruleset;
}

/// What reaches into other processes or into the kernel, and what would do a forbidden call's work
/// where the filter doesn't see it.
constexpr int reachingOut[] = {
    SCMP_SYS(ptrace),      SCMP_SYS(process_vm_readv),  SCMP_SYS(process_vm_writev),
    SCMP_SYS(pidfd_getfd), SCMP_SYS(io_uring_setup),    SCMP_SYS(bpf),
    SCMP_SYS(userfaultfd), SCMP_SYS(perf_event_open),   SCMP_SYS(keyctl),
    SCMP_SYS(add_key),     SCMP_SYS(request_key),       SCMP_SYS(mount),
    SCMP_SYS(umount2),     SCMP_SYS(unshare),           SCMP_SYS(setns),
    SCMP_SYS(open_tree),   SCMP_SYS(open_by_handle_at),
};

constexpr int startingPrograms[] = {
    SCMP_SYS(socket),
    SCMP_SYS(socketpair),
    SCMP_SYS(execve),
    SCMP_SYS(execveat),
    SCMP_SYS(fork),
    SCMP_SYS(vfork),
    SCMP_SYS(kill),
    SCMP_SYS(tkill),
    SCMP_SYS(pidfd_send_signal),
    SCMP_SYS(rt_sigqueueinfo),
};

constexpr int changingFiles[] = {
    SCMP_SYS(creat),     SCMP_SYS(truncate),  SCMP_SYS(unlink),      SCMP_SYS(unlinkat),
    SCMP_SYS(rename),    SCMP_SYS(renameat),  SCMP_SYS(renameat2),   SCMP_SYS(link),
    SCMP_SYS(linkat),    SCMP_SYS(symlink),   SCMP_SYS(symlinkat),   SCMP_SYS(mkdir),
    SCMP_SYS(mkdirat),   SCMP_SYS(rmdir),     SCMP_SYS(mknod),       SCMP_SYS(mknodat),
    SCMP_SYS(chmod),     SCMP_SYS(fchmod),    SCMP_SYS(fchmodat),    SCMP_SYS(chown),
    SCMP_SYS(lchown),    SCMP_SYS(fchown),    SCMP_SYS(fchownat),    SCMP_SYS(utime),
    SCMP_SYS(utimes),    SCMP_SYS(futimesat), SCMP_SYS(utimensat),   SCMP_SYS(setxattr),
    SCMP_SYS(lsetxattr), SCMP_SYS(fsetxattr), SCMP_SYS(removexattr),
};

/// A call that this machine doesn't have needs no rule, so no failure matters.
class Filter
{
public:
    explicit Filter(const FencePlan& plan) : context(seccomp_init(SCMP_ACT_ALLOW))
    {
        if (context == nullptr) return;
        for (const int call : reachingOut) Refuse(call, EPERM);
        if (plan.mayStartPrograms) {
            // As on a machine without network.
            Refuse(SCMP_SYS(socket), EAFNOSUPPORT, {0, SCMP_CMP_NE, AF_UNIX, 0});
        } else {
            for (const int call : startingPrograms) Refuse(call, EPERM);
            Refuse(SCMP_SYS(prlimit64), EPERM, {0, SCMP_CMP_NE, 0, 0});
            Refuse(SCMP_SYS(clone), EPERM, {0, SCMP_CMP_MASKED_EQ, CLONE_THREAD, 0});
            // Its arguments are out of sight; the C library takes clone in its place.
            Refuse(SCMP_SYS(clone3), ENOSYS);
        }
        if (plan.writable.empty()) RefuseChanges();
    }
    Filter(const Filter&) = delete;
    Filter& operator=(const Filter&) = delete;
    ~Filter() { seccomp_release(context); }

    /// The filter as the kernel takes it; empty when it can't be made.
    std::vector<sock_filter> Program() const
    {
        const FileDescriptor file(memfd_create("filter", MFD_CLOEXEC));
        struct stat facts;
        if (context == nullptr || !file.IsOpen() || seccomp_export_bpf(context, file.Get()) != 0 ||
            fstat(file.Get(), &facts) != 0) {
            return {};
        }
        std::vector<sock_filter> program(static_cast<std::size_t>(facts.st_size) /
                                         sizeof(sock_filter));
        if (pread(file.Get(), program.data(), program.size() * sizeof(sock_filter), 0) !=
            facts.st_size) {
            return {};
        }
        return program;
    }

private:
    void Refuse(int call, unsigned error)
    {
        seccomp_rule_add_array(context, SCMP_ACT_ERRNO(error), call, 0, nullptr);
    }

    void Refuse(int call, unsigned error, const scmp_arg_cmp& when)
    {
        seccomp_rule_add_array(context, SCMP_ACT_ERRNO(error), call, 1, &when);
    }

    void RefuseChanges()
    {
        for (const int call : changingFiles) Refuse(call, EPERM);
        Refuse(SCMP_SYS(openat2), ENOSYS);
        const scmp_datum_t modes[][2] = {
            {O_ACCMODE, O_WRONLY}, {O_ACCMODE, O_RDWR}, {O_CREAT, O_CREAT}, {O_TRUNC, O_TRUNC}};
        for (const auto& [mask, mode] : modes) {
            Refuse(SCMP_SYS(open), EPERM, {1, SCMP_CMP_MASKED_EQ, mask, mode});
            Refuse(SCMP_SYS(openat), EPERM, {2, SCMP_CMP_MASKED_EQ, mask, mode});
        }
    }

    const scmp_filter_ctx context;
};
} // namespace

struct ProcessFence::Parts
{
    explicit Parts(const FencePlan& plan)
        : ruleset(MakeRuleset(plan)), filter(Filter(plan).Program())
    {}

    FileDescriptor ruleset;
    std::vector<sock_filter> filter;
};

ProcessFence::ProcessFence(const FencePlan& plan) : parts(std::make_unique<const Parts>(plan)) {}

ProcessFence::~ProcessFence() = default;

void ProcessFence::Enter() const
{
    syscall(SYS_chdir, "/");
    prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
    if (parts->ruleset.IsOpen()) {
        syscall(SYS_landlock_restrict_self, parts->ruleset.Get(), 0);
    }
    const sock_fprog program = {static_cast<unsigned short>(parts->filter.size()),
                                const_cast<sock_filter*>(parts->filter.data())};
    syscall(SYS_seccomp, SECCOMP_SET_MODE_FILTER, 0, &program);
}
