#include "platform/AtomicFile.h"
#include "platform/FileReplacement.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

namespace
{
constexpr mode_t permissionBits = 0777;

mode_t Permissions(const CString& path)
{
    struct stat facts = {};
    stat(path.c_str(), &facts);
    return facts.st_mode & permissionBits;
}

int EntriesOf(const CString& folder)
{
    const std::filesystem::directory_iterator entries(folder);
    return static_cast<int>(std::distance(begin(entries), end(entries)));
}

TEST(AtomicFile, NewContentTakesOverNameAndPermissions)
{
    const TempFolder temp;
    const CString longestName(255, 'x');
    for (const CString& name : {CString("写真.xml"), longestName}) {
        const CString path = temp.Write(name, "old");
        chmod(path.c_str(), 0640);
        WriteFailure failure = WriteFailure::Other;
        EXPECT_TRUE(WriteFileAtomically(path, "new", &failure));
        EXPECT_EQ(failure, WriteFailure::None);
        EXPECT_EQ(temp.Read(name), "new");
        EXPECT_EQ(Permissions(path), 0640u);
    }
    EXPECT_TRUE(WriteFileAtomically(temp.Path("created"), ""));
    EXPECT_TRUE(std::filesystem::is_regular_file(temp.Path("created")));
    EXPECT_EQ(EntriesOf(temp.Path()), 3);
}

TEST(AtomicFile, RefusalsLeaveEverythingAlone)
{
    const TempFolder temp;
    chmod(temp.Write("readonly", "old").c_str(), 0444);
    temp.MakeFolder("folder");
    const struct
    {
        CString path;
        WriteFailure expected;
    } cases[] = {
        {temp.Path("readonly"), WriteFailure::NotWritable},
        {temp.Path("folder"), WriteFailure::NotWritable},
        {"/dev/null", WriteFailure::NotWritable},
        {temp.Path("missing/file"), WriteFailure::Other},
        {temp.Path("readonly/file"), WriteFailure::Other},
        {"", WriteFailure::Other},
    };
    for (const auto& refusal : cases) {
        WriteFailure failure = WriteFailure::None;
        EXPECT_FALSE(WriteFileAtomically(refusal.path, "new", &failure)) << refusal.path;
        EXPECT_EQ(failure, refusal.expected) << refusal.path;
    }
    EXPECT_EQ(temp.Read("readonly"), "old");
    EXPECT_EQ(EntriesOf(temp.Path()), 2);
}

TEST(AtomicFile, LinkIsReplacedAndItsTargetLeftAlone)
{
    const TempFolder temp;
    temp.Write("precious", "old");
    std::filesystem::create_symlink(temp.Path("precious"), temp.Path("record.xml"));
    EXPECT_TRUE(WriteFileAtomically(temp.Path("record.xml"), "new"));
    EXPECT_EQ(temp.Read("precious"), "old");
    EXPECT_EQ(temp.Read("record.xml"), "new");
}

/// Runs \p work in a process of its own; its return value becomes the exit code.
template <class Work>
pid_t Fork(Work work)
{
    const pid_t child = fork();
    if (child == 0) _exit(work());
    return child;
}

TEST(AtomicFile, OldFileIsWholeWhenThereIsNoRoom)
{
    const TempFolder temp;
    const CString path = temp.Write("file", "old");
    const pid_t child = Fork([&path] {
        const rlimit room = {4096, 4096};
        std::signal(SIGXFSZ, SIG_IGN);
        setrlimit(RLIMIT_FSIZE, &room);
        WriteFailure failure = WriteFailure::None;
        const bool written = WriteFileAtomically(path, CString(100000, 'x'), &failure);
        return written ? 1 : failure == WriteFailure::NoSpace ? 0 : 2;
    });
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(temp.Read("file"), "old");
    EXPECT_EQ(EntriesOf(temp.Path()), 1);
}

TEST(AtomicFile, KillAtAnyMomentLeavesAWholeFile)
{
    const TempFolder temp;
    const CString contents[] = {CString(300000, 'a'), CString(200000, 'b')};
    const CString path = temp.Write("file", contents[0]);
    for (useconds_t moment = 1000; moment <= 20000; moment += 1000) {
        const pid_t child = Fork([&] {
            for (int i = 1;; ++i) {
                if (!WriteFileAtomically(path, contents[i % 2])) return 1;
            }
        });
        usleep(moment);
        kill(child, SIGKILL);
        int status = 0;
        waitpid(child, &status, 0);
        EXPECT_TRUE(WIFSIGNALED(status));
        const CString found = temp.Read("file");
        EXPECT_TRUE(found == contents[0] || found == contents[1]) << found.size();
    }
}

TEST(AtomicFile, NextSaveRemovesWhatTheDeadLeftAndNothingElse)
{
    const TempFolder temp;
    const auto path = [&temp](const char* name) { return temp.Path(name); };
    for (int run = 0; run < 3; ++run) {
        const pid_t child = Fork([&path] {
            FileReplacement dying(path("record.xml"));
            return dying.Open(0400) == 0 && dying.Append("half") == 0 ? raise(SIGKILL) : 1;
        });
        int status = 0;
        waitpid(child, &status, 0);
        ASSERT_TRUE(WIFSIGNALED(status));
    }
    temp.Write(".tovi-1-1@another machine.tmp", "still being written");
    temp.Write(".tovi-notes", "a user's own");
    FileReplacement living(path("other.xml"));
    ASSERT_EQ(living.Open(0600), 0);
    EXPECT_EQ(EntriesOf(temp.Path()), 3);
    EXPECT_TRUE(WriteFileAtomically(path("record.xml"), "whole"));
    EXPECT_EQ(EntriesOf(temp.Path()), 4);
    EXPECT_EQ(living.Append("lives"), 0);
    EXPECT_EQ(living.Place(), 0);
    EXPECT_EQ(temp.Read("other.xml"), "lives");
}
} // namespace
