#include "platform/files/MibCopy.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>

namespace
{
namespace fs = std::filesystem;

constexpr std::size_t mebibyte = std::size_t{1} << 20;

/// The names of all that is in \p folder.
CString Tree(const CString& folder)
{
    CString text;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        text +=
            entry.path().lexically_relative(folder).string() + (entry.is_directory() ? "/ " : " ");
    }
    return text;
}

TEST(CopyFile, TakesOverBytesTimesAndPermissions)
{
    const TempFolder temp;
    const CString from = temp.Write("P0000001.jpg", CString(3 * mebibyte, 'x') + "end");
    const timespec times[] = {{1000000000, 1}, {1100000000, 123456789}};
    utimensat(AT_FDCWD, from.c_str(), times, 0);
    chmod(from.c_str(), 0444);
    const CString to = temp.Path("コピー.JPG");
    // The second copy finds the first in its place, read-only as it is.
    for (int run = 0; run < 2; ++run) {
        EXPECT_EQ(MibCopyFileEx(temp.Path("p0000001.JPG"), to), CopyFailure::None);
        struct stat copy;
        ASSERT_EQ(stat(to.c_str(), &copy), 0);
        EXPECT_EQ(copy.st_mode & 0777u, 0444u);
        EXPECT_EQ(copy.st_mtim.tv_sec, times[1].tv_sec);
        EXPECT_EQ(copy.st_mtim.tv_nsec, times[1].tv_nsec);
        EXPECT_TRUE(temp.Read("コピー.JPG") == temp.Read("P0000001.jpg"));
    }
}

TEST(CopyFile, FailsWithItsReasonAndLeavesNothingBehind)
{
    const TempFolder temp;
    const CString good = temp.Write("d/good", "good");
    temp.MakeFolder("d/folder/x");
    mkfifo(temp.Path("d/pipe").c_str(), 0600);
    fs::create_symlink("good", temp.Path("d/link"));
    const std::tuple<CString, CString, CopyFailure> cases[] = {
        {temp.Path("d/missing"), temp.Path("d/new"), CopyFailure::NoSource},
        {"", temp.Path("d/new"), CopyFailure::NoSource},
        {temp.Path("d/folder"), temp.Path("d/new"), CopyFailure::NoSource},
        {temp.Path("d/pipe"), temp.Path("d/new"), CopyFailure::NoSource},
        {good, temp.Path("none/new"), CopyFailure::NoFolder},
        {good, temp.Path("d/folder"), CopyFailure::NotAFile},
        {good, good, CopyFailure::Other},
        {good, temp.Path("d/link"), CopyFailure::Other},
    };
    const CString before = Tree(temp.Path("d"));
    for (const auto& [from, to, expected] : cases) {
        EXPECT_EQ(MibCopyFileEx(from, to), expected) << from << to;
    }
    EXPECT_EQ(Tree(temp.Path("d")), before);
}

TEST(DeepCopy, MergesFoldersWithoutRegardToCase)
{
    const TempFolder temp;
    temp.Write("one/pic/p1.jpg", "first");
    temp.Write("one/photo.xml", "xml");
    temp.Write("two/PIC/P1.JPG", "second");
    temp.Write("two/PIC/P2.JPG", "third");
    temp.Write("secret", "outside");
    fs::create_symlink(temp.Path("secret"), temp.Path("two/PIC/P3.JPG"));
    fs::create_directory_symlink(temp.Path("one"), temp.Path("two/DRA"));
    EXPECT_TRUE(MibDeepCopyDirectory(temp.Path("one"), temp.Path("area/PHOTO")).Execute());
    EXPECT_TRUE(MibDeepCopyDirectory(temp.Path("TWO/"), temp.Path("area/PHOTO/")).Execute());
    EXPECT_EQ(temp.Read("area/PHOTO/pic/p1.jpg"), "second");
    EXPECT_EQ(temp.Read("area/PHOTO/pic/P2.JPG"), "third");
    EXPECT_EQ(std::distance(fs::recursive_directory_iterator(temp.Path("area/PHOTO")), {}), 4);

    const CString before = Tree(temp.Path("one"));
    EXPECT_FALSE(MibDeepCopyDirectory(temp.Path("missing"), temp.Path("area")).Execute());
    EXPECT_FALSE(MibDeepCopyDirectory(temp.Path("one"), temp.Path("one/new/area")).Execute());
    EXPECT_EQ(Tree(temp.Path("one")), before);

    EXPECT_FALSE(MibRemoveDirectory(temp.Path("area"), false)) << "there is something in it";
    fs::create_directory_symlink(temp.Path("one"), temp.Path("area/link"));
    EXPECT_TRUE(MibRemoveDirectory(temp.Path("area"), true));
    EXPECT_EQ(Tree(temp.Path("one")), before);
    EXPECT_FALSE(MibRemoveDirectory("", true));
}
} // namespace
