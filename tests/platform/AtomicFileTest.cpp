#include "platform/files/AtomicFile.h"
#include "platform/files/FileDescriptor.h"
#include "platform/files/FileReplacement.h"
#include "platform/files/MibCopy.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

namespace
{
namespace fs = std::filesystem;

constexpr mode_t permissionBits = 0777;

mode_t Permissions(const CString& path)
{
    struct stat facts = {};
    stat(path.c_str(), &facts);
    return facts.st_mode & permissionBits;
}

int EntriesOf(const CString& folder)
{
    const fs::directory_iterator entries(folder);
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
    EXPECT_TRUE(fs::is_regular_file(temp.Path("created")));
    EXPECT_EQ(EntriesOf(temp.Path()), 3);
}

TEST(AtomicFile, RefusalsLeaveEverythingAlone)
{
    const TempFolder temp;
    chmod(temp.Write("readonly", "old").c_str(), 0444);
    temp.MakeFolder("folder");
    mkfifo(temp.Path("pipe").c_str(), 0600);
    temp.Write("delivery/INDEX_C.XML", "");
    temp.Write("delivery/PHOTO/photo.xml", "");
    fs::create_symlink("circle", temp.Path("circle"));
    fs::create_symlink("pipe", temp.Path("to pipe"));
    fs::create_symlink("/dev/null", temp.Path("to device"));
    const FileDescriptor opened(open(temp.Write("opened", "old").c_str(), O_RDONLY | O_CLOEXEC));
    fs::create_symlink(Format("/proc/self/fd/%d", opened.Get()), temp.Path("to stream"));
    fs::create_symlink("missing/file", temp.Path("to missing"));
    fs::create_symlink("delivery/r.xml", temp.Path("to delivery"));
    const std::pair<CString, WriteFailure> cases[] = {
        {temp.Path("readonly"), WriteFailure::NotWritable},
        {temp.Path("folder"), WriteFailure::NotAFile},
        {temp.Path("pipe"), WriteFailure::NotAFile},
        {temp.Path("circle"), WriteFailure::NotAFile},
        {temp.Path("to pipe"), WriteFailure::NotAFile},
        {temp.Path("to device"), WriteFailure::NotAFile},
        {temp.Path("to stream"), WriteFailure::NotAFile},
        {temp.Path("to missing"), WriteFailure::NoFolder},
        {temp.Path("missing/file"), WriteFailure::NoFolder},
        {temp.Path("readonly/file"), WriteFailure::NoFolder},
        {temp.Path("to delivery"), WriteFailure::InDelivery},
        {temp.Path("delivery/PHOTO/PIC.xml"), WriteFailure::InDelivery},
        {"", WriteFailure::Other},
    };
    const int entries = EntriesOf(temp.Path());
    for (const auto& [path, expected] : cases) {
        WriteFailure failure = WriteFailure::None;
        EXPECT_FALSE(WriteFileAtomically(path, "new", &failure)) << path;
        EXPECT_EQ(failure, expected) << path;
        EXPECT_EQ(WhyNotReplaceable(path), expected) << path;
        EXPECT_EQ(MibCopyFileEx(temp.Path("readonly"), path),
                  path.ends_with("readonly") ? WriteFailure::Other : expected)
            << path;
    }
    EXPECT_EQ(temp.Read("readonly"), "old");
    EXPECT_EQ(EntriesOf(temp.Path()), entries);
    EXPECT_EQ(EntriesOf(temp.Path("delivery")), 2);
}

TEST(AtomicFile, LinksLeadToWhatIsWritten)
{
    const TempFolder temp;
    temp.Write("real/old.xml", "old");
    fs::create_symlink("real", temp.Path("folder"));
    fs::create_symlink("folder/old.xml", temp.Path("one.xml"));
    fs::create_symlink(temp.Path("one.xml"), temp.Path("two.xml"));
    fs::create_symlink("real/new.xml", temp.Path("dangling.xml"));
    EXPECT_TRUE(WriteFileAtomically(temp.Path("two.xml"), "new"));
    EXPECT_TRUE(WriteFileAtomically(temp.Path("dangling.xml"), "created"));
    EXPECT_EQ(temp.Read("real/old.xml"), "new");
    EXPECT_EQ(temp.Read("real/new.xml"), "created");
    for (const char* link : {"one.xml", "two.xml", "dangling.xml"}) {
        EXPECT_TRUE(fs::is_symlink(temp.Path(link))) << link;
    }
    EXPECT_EQ(EntriesOf(temp.Path("real")), 2);

    // As the system holds it in /tmp: nobody else's link leads us to what only we may write.
    if (geteuid() != 0) return;
    chmod(temp.MakeFolder("everybody's").c_str(), 01777);
    fs::create_symlink("../real/old.xml", temp.Path("everybody's/trap"));
    ASSERT_EQ(lchown(temp.Path("everybody's/trap").c_str(), 12345, 12345), 0);
    EXPECT_FALSE(WriteFileAtomically(temp.Path("everybody's/trap"), "trapped"));
    EXPECT_EQ(temp.Read("real/old.xml"), "new");
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
