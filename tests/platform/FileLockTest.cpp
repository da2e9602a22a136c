#include "platform/files/FileLock.h"

#include "platform/files/MibFile.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{
bool IsEmpty(const TempFolder& temp)
{
    return std::filesystem::is_empty(temp.Path());
}

TEST(FileLock, KeepsOthersOutAndLeavesNothing)
{
    CString longest;
    while (longest.size() < 255) longest += "録";
    const CString names[] = {"記録.xml", longest};
    for (const CString& name : names) {
        const TempFolder temp;
        {
            FileLock lock(temp.Path(name));
            FileLock other(temp.Path(name));
            EXPECT_TRUE(lock.Take());
            EXPECT_FALSE(other.Take()) << name;
            EXPECT_EQ(other.Holder().process, std::to_string(getpid()));
            EXPECT_EQ(other.Holder().program, "tovi-platform-tests");
            lock.Release();
            EXPECT_TRUE(IsEmpty(temp));
            EXPECT_TRUE(other.Take()) << name;
            EXPECT_FALSE(lock.Take());
        }
        EXPECT_TRUE(IsEmpty(temp));
    }
}

TEST(FileLock, EndsWithAKilledProgram)
{
    const TempFolder temp;
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    const pid_t child = fork();
    if (child == 0) {
        FileLock lock(temp.Path("r.xml"));
        const bool taken = lock.Take();
        if (write(ready[1], "x", 1) != 1 || !taken) _exit(1);
        pause();
    }
    char byte = 0;
    ASSERT_EQ(read(ready[0], &byte, 1), 1);
    {
        FileLock lock(temp.Path("r.xml"));
        EXPECT_FALSE(lock.Take());
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        EXPECT_FALSE(IsEmpty(temp));
        EXPECT_TRUE(lock.Take());
        EXPECT_EQ(lock.Holder().process, std::to_string(getpid()));
    }
    EXPECT_TRUE(IsEmpty(temp));
    close(ready[0]);
    close(ready[1]);
}

TEST(FileLock, LetsEverybodyInWhereThereCanBeNone)
{
    const TempFolder temp;
    temp.Write("PHOTO.XML", "");
    for (const CString& path : {CString(), CString("/"), CString("/proc/r.xml"),
                                CString("/none/r.xml"), temp.Path("r.xml")}) {
        FileLock lock(path);
        FileLock other(path);
        EXPECT_TRUE(lock.Take()) << path;
        EXPECT_TRUE(other.Take()) << path;
        EXPECT_FALSE(std::filesystem::exists(temp.Path(".r.xml.lock")));
    }
}

TEST(MibTargetPath, IsOneForEveryWayToAFile)
{
    const TempFolder temp;
    temp.MakeFolder("a/b");
    const CString real = std::filesystem::canonical(temp.Path()).string() + "/a/r.xml";
    std::filesystem::create_directory_symlink(temp.Path("a/b"), temp.Path("b"));
    std::filesystem::create_symlink("../a/second.xml", temp.Path("a/first.xml"));
    std::filesystem::create_symlink("r.xml", temp.Path("a/second.xml"));
    std::filesystem::create_symlink("circle.xml", temp.Path("circle.xml"));
    for (const bool exists : {false, true}) {
        if (exists) temp.Write("a/r.xml", "x");
        for (const char* way : {"a/r.xml", "a/./b/../r.xml", "b/../r.xml", "a/first.xml"}) {
            EXPECT_EQ(MibTargetPath(temp.Path(way)), real) << way;
        }
    }
    EXPECT_EQ(MibTargetPath(temp.Path("a/R.XML")), real);
    EXPECT_EQ(MibTargetPath("r.xml"), std::filesystem::current_path().string() + "/r.xml");
    EXPECT_EQ(MibTargetPath(temp.Path("none/r.xml")), "");
    EXPECT_EQ(MibTargetPath(temp.Path("circle.xml")), "");
}
} // namespace
