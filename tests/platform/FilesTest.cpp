#include "platform/files/DeliveredFolder.h"
#include "platform/files/FileDescriptor.h"
#include "platform/files/MibFile.h"
#include "platform/files/RunFolder.h"
#include "platform/files/TextHead.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>

namespace
{
TEST(MibFile, FallsBackOnLetterCase)
{
    const TempFolder temp;
    temp.Write("Photo/pic/p0000001.jpg", "picture");
    temp.Write("Photo/pic/Ｐ写真.JPG", "");
    const CString root = temp.Path() + "/";
    EXPECT_TRUE(MibIsFileExist(root + "PHOTO/PIC/P0000001.JPG"));
    EXPECT_TRUE(MibIsFileExist(root + "PHOTO/PIC/ｐ写真.jpg"));
    EXPECT_TRUE(MibIsFolderExist(root + "photo/PIC/"));
    EXPECT_EQ(MibReadFile(root + "PHOTO/PIC/P0000001.JPG", 100), "picture");
    EXPECT_FALSE(MibIsFileExist(root + "PHOTO/PIC/P0000002.JPG"));
    EXPECT_FALSE(MibIsFileExist(root + "PHOTO/PIC"));
    EXPECT_FALSE(MibIsFolderExist(root + "PHOTO/PIC/P0000001.JPG"));
}

TEST(MibFile, SeesWhatWasAddedToAFolderThatWasListed)
{
    const TempFolder temp;
    temp.Write("a.txt", "");
    EXPECT_FALSE(MibIsFileExist(temp.Path("B.TXT")));
    temp.Write("b.txt", "");
    EXPECT_TRUE(MibIsFileExist(temp.Path("B.TXT")));
    std::filesystem::remove(temp.Path("b.txt"));
    EXPECT_FALSE(MibIsFileExist(temp.Path("B.TXT")));
    // Clocks of file systems can be too coarse to tell the next change from the last one.
    const auto changed = std::filesystem::last_write_time(temp.Path());
    temp.Write("c.txt", "");
    std::filesystem::last_write_time(temp.Path(), changed);
    EXPECT_TRUE(MibIsFileExist(temp.Path("C.TXT")));
}

TEST(MibFile, ReadsNoPipeAndNothingTooLarge)
{
    const TempFolder temp;
    mkfifo(temp.Path("pipe").c_str(), 0600);
    EXPECT_FALSE(MibReadFile(temp.Path("pipe"), 100));
    EXPECT_FALSE(FindHeadLine(temp.Path("pipe"), {"a"}));
    EXPECT_FALSE(MibReadFile(temp.Write("large", CString(101, 'a')), 100));
    EXPECT_FALSE(MibReadFile(temp.Path(), 100));
}

TEST(MibFile, FollowsLinksToTellInsideFromOutside)
{
    const TempFolder temp;
    temp.Write("delivery/pic/a.jpg", "");
    temp.Write("delivery-2/b.jpg", "");
    std::filesystem::create_symlink("../../delivery-2/b.jpg", temp.Path("delivery/pic/out.jpg"));
    std::filesystem::create_symlink("a.jpg", temp.Path("delivery/pic/in.jpg"));
    std::filesystem::create_symlink(".", temp.Path("delivery/pic/loop"));
    std::filesystem::create_symlink("../delivery-2", temp.Path("delivery/away"));
    const std::pair<const char*, bool> cases[] = {
        {"delivery/pic/a.jpg", true},    {"delivery/PIC/A.JPG", true},
        {"delivery/pic/in.jpg", true},   {"delivery/pic/loop/loop/a.jpg", true},
        {"delivery/pic/out.jpg", false}, {"delivery/../delivery-2/b.jpg", false},
        {"delivery-2/b.jpg", false},     {"delivery/pic/missing.jpg", false},
        {"delivery/away/b.jpg", false},  {"delivery/away/../delivery/pic/a.jpg", true},
    };
    for (const auto& [path, inside] : cases) {
        EXPECT_EQ(MibIsInside(temp.Path("delivery"), temp.Path(path)), inside) << path;
        EXPECT_EQ(MibIsFileInside(temp.Path("delivery/"), temp.Path(path)), inside) << path;
    }
    for (const char* noFile :
         {"delivery/", "delivery/pic", "delivery/pic/a.jpg/", "delivery/pic/"}) {
        EXPECT_FALSE(MibIsFileInside(temp.Path("delivery/"), temp.Path(noFile))) << noFile;
    }
    EXPECT_FALSE(MibIsFileInside(temp.Path("delivery/"), temp.Path("delivery/pic/a.jpg") + '\0'));
    EXPECT_FALSE(MibIsInside("", temp.Path("delivery/pic/a.jpg")));
}

TEST(DeliveredFolder, IsKnownByWhatStandsInItAndAbove)
{
    const TempFolder temp;
    temp.Write("work/index_c.xml", "");
    temp.Write("work/Photo/photo.xml", "");
    temp.Write("work/OTHRS/a.txt", "");
    temp.Write("plain/PHOTO/PHOTO.XML", "");
    temp.Write("plain/PHOTO/PIC/P1.JPG", "");
    temp.Write("stray/PHOTO.XML", "");
    temp.Write("stray/records/a.xml", "");
    temp.Write("index/INDEX_C.XML", "");
    std::filesystem::create_directory_symlink("../plain/PHOTO/PIC", temp.Path("stray/link"));
    std::filesystem::create_symlink("../../plain/PHOTO/new.xml", temp.Path("stray/records/link"));
    const std::pair<const char*, bool> cases[] = {
        {"work", true},
        {"work/record.xml", true},
        {"work/OTHRS", true},
        {"work/OTHRS/new/new", true},
        {"plain/PHOTO/PIC/new.jpg", true},
        {"plain/PHOTO/new/record.xml", true},
        {"plain/photo/", true},
        {"plain/record.xml", false},
        {"stray/record.xml", true},
        {"stray/records/new.xml", false},
        {"stray/records/link", true},
        {"stray/link/new.jpg", true},
        {"index/record.xml", false},
        {"new/new", false},
    };
    for (const auto& [path, inside] : cases)
        EXPECT_EQ(IsInDelivery(temp.Path(path)), inside) << path;
    EXPECT_FALSE(IsInDelivery(""));
}

TEST(TextHead, FindsALineOfEveryShapeAtTheFrontAlone)
{
    using namespace std::string_literals;
    const TempFolder temp;
    const std::string far(headLineRange, '\n');
    const std::tuple<const char*, std::string, const char*> cases[] = {
        {"empty", "", ""},
        {"no such line", "a\nb", ""},
        {"CR and LF", "a\r\n<x\r\nb", "<x"},
        {"the last line", "a\n\n<x", "<x"},
        {"the first of the words in the order of the file", "a\n<y\n<x", "<y"},
        {"bytes in no encoding", "a\n<x\xFF\n", "<x\xFF"},
        {"UTF-16", "\xFF\xFE\r\0\n\0<\0x\0"s, "<x"},
        {"UTF-16 cut off in a character", "\xFF\xFE<\0x\0\n\0\x3D\xD8\x00"s, "<x"},
        {"a line behind the front", far + "<x", ""},
        {"a line that ends behind it", far.substr(4) + "<x" + std::string(100, 'z'), "<xzz"},
    };
    for (const auto& [what, bytes, line] : cases) {
        EXPECT_EQ(FindHeadLine(temp.Write("text", bytes), {"<x", "<y"}), line) << what;
    }
    EXPECT_EQ(FindHeadLine(temp.Path("missing"), {"<x"}), std::nullopt);
}

void BindSocket(const CString& path)
{
    const FileDescriptor made(socket(AF_UNIX, SOCK_STREAM, 0));
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    const auto* const bound = reinterpret_cast<const sockaddr*>(&address);
    ASSERT_EQ(bind(made.Get(), bound, sizeof address), 0);
}

TEST(RunFolder, LeavesThoseOfOtherRunsAlone)
{
    const TempFolder temp;
    const CString shared = temp.Path("suite/runs");
    temp.Write("suite/runs/ended/rest", "");
    const CString kept = temp.Write("kept", "no socket");
    const CString socketPath = temp.Path("socket");
    BindSocket(socketPath);
    temp.Write("suite/runs/ended/sockets", socketPath + '\n' + kept + "\n/none\n");
    {
        const RunFolder first(shared);
        const RunFolder second(shared);
        EXPECT_NE(first.Path(), second.Path());
        EXPECT_TRUE(MibIsFolderExist(first.Path()) && MibIsFolderExist(second.Path()));
        EXPECT_FALSE(MibIsFolderExist(shared + "/ended"));
        EXPECT_FALSE(std::filesystem::exists(socketPath));
        EXPECT_TRUE(std::filesystem::exists(kept));
        temp.Write(second.Path().substr(temp.Path().size() + 1) + "/part/file", "");
    }
    EXPECT_FALSE(MibIsFolderExist(shared));
    EXPECT_TRUE(MibIsFolderExist(temp.Path("suite")));
    temp.Write("file", "");
    EXPECT_EQ(RunFolder(temp.Path("file/work")).Path(), "");
    EXPECT_EQ(RunFolder("").Path(), "");
}
} // namespace
