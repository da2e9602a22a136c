#include "platform/files/MibFile.h"
#include "platform/host/HostServices.h"
#include "sample/DeliveryBuilder.h"
#include "support/FileTree.h"
#include "support/RunProgram.h"
#include "support/TempFolder.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <signal.h>
#include <unistd.h>

#include <chrono>
#include <future>
#include <set>
#include <thread>

namespace
{
using Json = nlohmann::json;
using testing::HasSubstr;

CString ProgramFolder()
{
    CString folder = RunningProgramPath();
    folder.resize(folder.rfind('/') + 1);
    return folder;
}

CString OutputOf(const CString& command)
{
    FILE* const pipe = popen(command.c_str(), "r");
    CString output;
    for (int c = std::fgetc(pipe); c != EOF; c = std::fgetc(pipe)) output += static_cast<char>(c);
    pclose(pipe);
    return output;
}

/// The processes whose command line holds both texts.
std::vector<pid_t> Processes(const CString& first, const CString& second)
{
    std::vector<pid_t> found;
    for (const auto& entry : std::filesystem::directory_iterator("/proc")) {
        const CString name = entry.path().filename().string();
        if (!std::isdigit(static_cast<unsigned char>(name[0]))) continue;
        // Reading fails for one that ends meanwhile, which getline keeps to itself.
        std::ifstream file(entry.path() / "cmdline");
        CString line;
        for (CString word; std::getline(file, word, '\0');) line += word + ' ';
        if (line.find(first) != CString::npos && line.find(second) != CString::npos) {
            found.push_back(std::stoi(name));
        }
    }
    return found;
}

/// Reports of a delivery of 63 photographs through the real office, with a work folder whose name
/// is long and Japanese.
class ReportJourney : public testing::Test
{
protected:
    static constexpr int photos = 63;

    ReportJourney()
    {
        DeliveryBuilder builder({.photos = photos, .drawings = 0, .images = false});
        for (int i = 0; i < photos; ++i) {
            builder.Set(i, "シリアル番号", Format("%d", i + 1))
                .Set(i, "写真タイトル", Format("写真%d", i + 1))
                .Set(i, "撮影箇所", "=1+1");
        }
        // Threads of the office's libraries end while the search for leaks looks at them, which it
        // doesn't always survive.
        setenv("ASAN_OPTIONS", "detect_leaks=0", 1);
        builder.Write(delivery);
        delivered = ReadFileTree(delivery);
        temp.MakeFolder(documents);
        temp.Write("config/user-dirs.dirs", "XDG_DOCUMENTS_DIR=\"" + temp.Path(documents) + "\"\n");
    }

    void SetUp() override
    {
        if (!MibIsFileExist(ProgramFolder() + "libToviSheet.so")) {
            GTEST_SKIP() << "LibreOffice isn't installed";
        }
    }

    /// Whatever the ending, nothing of the office is left and the delivery is as it was.
    void TearDown() override
    {
        EXPECT_TRUE(ReadFileTree(delivery) == delivered);
        EXPECT_TRUE(Processes("soffice", mark).empty());
        const CString work = temp.Path("config/cache/tovi/QVScratch/QV-SUITE/QV-ExcelData");
        EXPECT_FALSE(std::filesystem::exists(work));
        for (const auto& file : std::filesystem::directory_iterator(temp.Path())) {
            EXPECT_THAT(file.path().filename().string(), testing::Not(HasSubstr(".~lock")));
        }
    }

    ProgramResult Run(std::vector<CString> arguments) const
    {
        arguments.insert(arguments.begin(), "tovi");
        arguments.insert(arguments.begin() + 2, delivery);
        return RunProgram(arguments, temp.Path("config"));
    }

    ProgramResult Report(const CString& path) const
    {
        return Run({"report", path, "--sort", "シリアル番号", "--record", record});
    }

    void Inspect(const CString& photo, const std::vector<CString>& what) const
    {
        std::vector<CString> arguments = {"label", "--record", record, "--at", photo};
        arguments.insert(arguments.end(), what.begin(), what.end());
        ASSERT_EQ(Run(arguments).status, 0);
    }

    static Json Read(const CString& report)
    {
        return Json::parse(OutputOf(CString(READ_REPORT) + " '" + report + "'"));
    }

    /// Starts a report over an old file and sends \p signalNumber to the process of \p program
    /// once \p isTime, asked every 10 ms, says so, and to those that begin in its place.
    ProgramResult Disturb(const CString& program, int signalNumber,
                          const std::function<bool()>& isTime) const
    {
        temp.Write("検査 結果.xls", "old");
        auto result = std::async(std::launch::async, [this] { return Report(output); });
        const auto hasEndedIn = [&result](int milliseconds) {
            return result.wait_for(std::chrono::milliseconds(milliseconds)) ==
                   std::future_status::ready;
        };
        while (!isTime() && !hasEndedIn(10)) {
        }
        std::set<pid_t> reached;
        do {
            for (const pid_t process : Processes(program, mark)) {
                if (reached.insert(process).second) kill(process, signalNumber);
            }
        } while (!hasEndedIn(50));
        return result.get();
    }

    /// True from \p delay milliseconds after the office has started on.
    std::function<bool()> AfterStart(int delay) const
    {
        return [this, rest = delay]() mutable {
            return !Processes("soffice", mark).empty() && (rest -= 10) < 0;
        };
    }

    TempFolder temp;
    const CString documents = "書類の入ったとても長い名前のフォルダとその中の作業用のフォルダ";
    CString delivery = temp.Path("d");
    FileTree delivered;
    CString record = temp.Path("r.xml");
    CString output = temp.Path("検査 結果.xls");
    /// What is in the command lines of all our processes.
    CString mark = MibGetFileName(temp.Path());
};

TEST_F(ReportJourney, IsReadBackCellByCell)
{
    const CString longComment(3000, 'c');
    Inspect("0-62", {"--paste", "0"});
    Inspect("1", {"--paste", "1", "--comment", "一行目\n二行目"});
    Inspect("30", {"--paste", "2", "--comment", longComment});
    const char* const leading[] = {"=1+1", "+1", "-1", "@SUM(A1)", "'quoted"};
    for (int i = 0; i < 5; ++i) Inspect(Format("%d", 31 + i), {"--comment", leading[i]});

    const ProgramResult result = Report(output);
    ASSERT_EQ(result.status, 0) << result.errors;
    EXPECT_EQ(Json::parse(result.output),
              Json({{"file", output}, {"photos", photos}, {"pages", 3}}));
    const Json sheet = Read(output);
    const Json& rows = sheet["rows"];
    ASSERT_EQ(rows.size(), 96u);
    const Json header = {"シリアル番号", "写真名", "撮影箇所", "検査結果", "所見"};
    for (int row = 0; row < 96; ++row) {
        const int index = row / 32 * 31 + row % 32 - 1;
        if (row % 32 == 0) {
            EXPECT_EQ(rows[row], header) << row;
        } else if (index >= photos) {
            EXPECT_EQ(rows[row], Json({"", "", "", "", ""})) << row;
        } else {
            EXPECT_EQ(rows[row][0], Format("%d", index + 1)) << row;
            EXPECT_EQ(rows[row][1], Format("写真%d", index + 1)) << row;
            EXPECT_EQ(rows[row][2], "=1+1") << row;
            EXPECT_EQ(rows[row][3], index == 1 || index == 30 ? "ＮＧ" : "ＯＫ") << row;
        }
    }
    EXPECT_THAT(rows[2][4].get<CString>(), HasSubstr("、一行目\n二行目"));
    EXPECT_THAT(rows[31][4].get<CString>(), HasSubstr("、" + longComment));
    for (int i = 0; i < 5; ++i) EXPECT_EQ(rows[33 + i][4], leading[i]);
    EXPECT_EQ(sheet["types"], Json({1, 6})) << "texts and empty cells";
    EXPECT_EQ(sheet["pageBreaks"], Json({32, 64}));
    EXPECT_EQ(sheet["showsPages"], 1);
    EXPECT_EQ(sheet["heights"].size(), 1u) << "all rows are as high as the form's";
    EXPECT_EQ(sheet["printArea"], Json({"検査結果!$A$1:$E$96"}));

    ASSERT_EQ(Report(output).status, 0) << "the same output again";
    EXPECT_EQ(Read(output)["rows"], rows);
}

TEST_F(ReportJourney, ChoosesTheFormatByTheEnding)
{
    Inspect("0", {"--paste", "0"});
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"報告", "報告.xls", "\xD0\xCF\x11\xE0"},
        {"r.XLSX", "r.XLSX", "PK"},
        {"r.ods", "r.ods", "PK"},
        {"r.pdf", "r.pdf", "%PDF"}};
    for (const auto& [name, written, start] : cases) {
        ASSERT_EQ(Report(temp.Path(name)).status, 0) << name;
        EXPECT_EQ(temp.Read(written).substr(0, CString(start).size()), start) << name;
    }
}

TEST_F(ReportJourney, KeepsTheOldFileWhenTheOfficeIsKilled)
{
    Inspect("0", {"--paste", "0"});
    int killed = 0;
    for (const int delay : {0, 300, 700, 1400}) {
        const ProgramResult result = Disturb("soffice", SIGKILL, AfterStart(delay));
        // On a fast machine the report was done by then.
        if (result.status == 0) continue;
        ++killed;
        EXPECT_EQ(result.status, 1) << delay;
        EXPECT_THAT(result.errors, HasSubstr("EXCEL")) << delay;
        EXPECT_EQ(temp.Read("検査 結果.xls"), "old") << delay;
        TearDown();
    }
    EXPECT_GT(killed, 0);
}

TEST_F(ReportJourney, EndsTheOfficeOnAnInterrupt)
{
    Inspect("0", {"--paste", "0"});
    for (const int delay : {0, 300, 1000}) {
        const ProgramResult result = Disturb("report", SIGINT, AfterStart(delay));
        // On a fast machine the report was done by then.
        if (delay > 300 && result.status == 0) continue;
        EXPECT_EQ(result.status, 130) << delay << result.errors;
        EXPECT_EQ(temp.Read("検査 結果.xls"), "old") << delay;
        TearDown();
    }
}

TEST_F(ReportJourney, GivesUpAnOfficeThatNoLongerAnswers)
{
    Inspect("0", {"--paste", "0"});
    const auto listens = [] {
        return OutputOf("cat /proc/net/unix").find("_tovi-") != CString::npos;
    };
    const ProgramResult result = Disturb("soffice", SIGSTOP, listens);
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.errors, HasSubstr("EXCEL"));
    EXPECT_EQ(temp.Read("検査 結果.xls"), "old");
}

TEST_F(ReportJourney, TellsThatTheOfficeIsMissing)
{
    const CString programs = temp.MakeFolder("programs") + "/";
    for (const char* file : {"tovi", "libToviCore.so", "READITEM.XML", "CHKPHOTO.XLS"}) {
        std::filesystem::copy_file(ProgramFolder() + file, programs + file);
    }
    const CString said = OutputOf("XDG_CONFIG_HOME='" + temp.Path("config") + "' '" + programs +
                                  "tovi' report '" + delivery + "' '" + output + "' 2>&1");
    EXPECT_THAT(said,
                HasSubstr("EXCELが起動できません。インストールされていないか、正しくセットアップ"
                          "されていない可能性があります。"));
    EXPECT_FALSE(std::filesystem::exists(output));
}
} // namespace
