// Where the results of the commands go, and what becomes of a command when they can't.

#include "platform/files/MibFile.h"
#include "platform/host/HostServices.h"
#include "sample/DeliveryBuilder.h"
#include "support/DiskMount.h"
#include "support/FileTree.h"
#include "support/RunProgram.h"
#include "support/TempFolder.h"

#include <gmock/gmock.h>

#include <sys/stat.h>

namespace
{
namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::StartsWith;

class Output : public testing::Test
{
protected:
    Output()
    {
        DeliveryBuilder({.photos = 2, .drawings = 0}).Write(delivery);
        temp.MakeFolder("out");
        temp.Write("config/tovi/registry.ini",
                   "[SOFTWARE\\Orvane Systems\\QVHomeKey]\nQVScratch=sz:" +
                       temp.MakeFolder("work"));
    }

    /// Runs tovi with \p arguments by a shell that does \p first before.
    ProgramResult Run(const CString& first, const std::vector<CString>& arguments) const
    {
        const CString program = RunningProgramPath();
        std::vector<CString> all = {"/bin/sh", "-c", first + "; exec \"$0\" \"$@\"",
                                    program.substr(0, program.rfind('/')) + "/tovi"};
        all.insert(all.end(), arguments.begin(), arguments.end());
        return RunProgram(all, temp.Path("config"));
    }

    TempFolder temp;
    const CString delivery = temp.Path("d");
    const CString record = temp.Path("out/r.xml");
};

TEST_F(Output, ThatDoesNotArriveFailsEveryCommand)
{
    Run(":", {"label", delivery, "--record", record, "--at", "0", "--paste", "0"});
    const std::vector<CString> commands[] = {
        {"info", delivery},
        {"photos", delivery},
        {"tree", delivery},
        {"select", delivery},
        {"sheet", delivery, "-"},
        {"label", delivery, "--record", record, "--at", "0", "--paste", "1"},
        {"record", delivery, record},
        {"return", delivery, "--record", record, "-"},
        {"exif", delivery},
        {"values", delivery},
        {"pairs", delivery},
        {"settings"},
        {"verify", delivery},
        {"index", delivery},
        {"export", delivery, temp.MakeFolder("full")},
        {"combine", delivery},
        {"--help"},
    };
    for (const auto& command : commands) {
        for (const char* where : {"exec >/dev/full", "exec >&-"}) {
            const ProgramResult result = Run(where, command);
            EXPECT_EQ(result.status, 1) << where << command[0];
            EXPECT_THAT(result.errors, HasSubstr("標準出力に結果を書き込めません"))
                << where << command[0];
            fs::remove_all(temp.Path("full"));
            temp.MakeFolder("full");
        }
    }
}

TEST_F(Output, GoesWhereItsNameLeads)
{
    const auto sheet = [this](const CString& output) {
        return Run("cd '" + temp.Path("out") + "'", {"sheet", delivery, output});
    };
    EXPECT_THAT(sheet("-").output, StartsWith("\x89PNG"));
    EXPECT_TRUE(fs::is_empty(temp.Path("out"))) << "no file of this name";
    EXPECT_EQ(sheet("a.JPG").status, 0);
    EXPECT_THAT(temp.Read("out/a.JPG"), StartsWith("\xFF\xD8\xFF"));
    fs::create_symlink("../linked.png", temp.Path("out/link.png"));
    EXPECT_EQ(sheet("link.png").status, 0);
    EXPECT_THAT(temp.Read("linked.png"), StartsWith("\x89PNG"));
    EXPECT_TRUE(fs::is_symlink(temp.Path("out/link.png")));

    mkfifo(temp.Path("out/pipe.png").c_str(), 0600);
    fs::create_symlink("/dev/null", temp.Path("out/device"));
    fs::create_symlink("/proc/self/fd/1", temp.Path("out/stdout"));
    fs::create_symlink(delivery + "/PHOTO/new.png", temp.Path("out/delivered.png"));
    const std::tuple<const char*, int, const char*> refusals[] = {
        {"pipe.png", 1, "ファイルではありません"},
        {"device", 1, "ファイルではありません"},
        {"stdout", 1, "ファイルではありません"},
        {"delivered.png", 2, "納品データのフォルダ"},
        {"a.gif", 2, ".png、.jpg"}};
    const FileTree before = ReadFileTree(delivery);
    for (const auto& [output, status, sentence] : refusals) {
        const ProgramResult result = sheet(output);
        EXPECT_EQ(result.status, status) << output;
        EXPECT_THAT(result.errors, HasSubstr(sentence)) << output;
    }
    EXPECT_EQ(ReadFileTree(delivery), before);
    EXPECT_EQ(Run(":", {"report", delivery, "-"}).status, 2);

    Run(":", {"label", delivery, "--record", record, "--at", "0", "--paste", "0"});
    EXPECT_EQ(Run(":", {"return", delivery, "--record", record, temp.Path("r.xml")}).status, 0);
    EXPECT_THAT(temp.Read("r.xml"), StartsWith("<?xml"));
    EXPECT_EQ(Run(":", {"return", delivery, "--record", record, "-"}).output, temp.Read("r.xml"));
}

TEST_F(Output, BeyondTheLimitOfAFileIsAnErrorLikeAFullDisk)
{
    const CString copies = temp.MakeFolder("copies");
    const std::vector<CString> commands[] = {
        {"sheet", delivery, temp.Path("out/sheet.png")},
        {"export", delivery, copies},
        {"index", delivery, "--html"},
        {"label", delivery, "--record", record, "--at", "0", "--comment", CString(4000, 'x')}};
    for (const auto& command : commands) {
        const ProgramResult result = Run("ulimit -f 4", command);
        EXPECT_EQ(result.status, 1) << command[0] << result.errors;
        EXPECT_THAT(result.errors, HasSubstr("空き容量")) << command[0];
    }
    EXPECT_TRUE(fs::is_empty(copies));
    EXPECT_TRUE(fs::is_empty(temp.Path("out")));
}
TEST_F(Output, NeedsNoRoomAtHome)
{
    fs::remove(temp.Path("config/tovi/registry.ini"));
    const CString home = temp.MakeFolder("home");
    const DiskMount full(home, "tmpfs", "size=4k");
    temp.Write("home/x", CString(4096, 'x'));
    chmod(home.c_str(), 0500);
    const CString first = "export HOME='" + home + "' XDG_CONFIG_HOME='" + home +
                          "/.config' XDG_CACHE_HOME='" + home + "'";
    const CString copies = temp.MakeFolder("copies");
    const std::vector<CString> commands[] = {
        {"label", delivery, "--record", record, "--at", "0", "--paste", "0"},
        {"return", delivery, "--record", record, temp.Path("out/return.xml")},
        {"sheet", delivery, temp.Path("out/sheet.png")},
        {"report", delivery, temp.Path("out/report.xls"), "--record", record},
        {"export", delivery, copies}};
    for (const auto& command : commands) {
        const ProgramResult result = Run(first, command);
        EXPECT_EQ(result.status, 0) << command[0] << result.errors;
    }
    // What belongs there alone says so.
    const ProgramResult index = Run(first, {"index", delivery});
    EXPECT_EQ(index.status, 1);
    EXPECT_THAT(index.errors, HasSubstr(home + "/tovi/QVScratch"));
    fs::rename(temp.Path("d/INDEX_C.XML"), temp.Path("INDEX_C.XML"));
    fs::create_symlink(temp.Path("INDEX_C.XML"), temp.Path("d/INDEX_C.XML"));
    EXPECT_THAT(Run(first, {"index", delivery}).errors, HasSubstr("リンク"));
    chmod(home.c_str(), 0700);
}
} // namespace
