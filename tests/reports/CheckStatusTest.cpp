#include "items/ToviPhotoCtrlVisualSetting.h"
#include "photos/LabelSlots.h"
#include "photos/ToviPhoto.h"
#include "platform/files/DiskSpace.h"
#include "platform/files/UserFolders.h"
#include "reports/CheckStatusCells.h"
#include "reports/CheckStatusPages.h"
#include "reports/ToviCheckStatusFileOut.h"
#include "review/ToviLabelManager.h"
#include "support/Labels.h"
#include "support/OpenedSample.h"
#include "work/Environment.h"

#include <gmock/gmock.h>

#include <map>
#include <set>

#include <sys/stat.h>

namespace
{
using Outcome = CheckStatusOutcome;
using Row = std::vector<CString>;
using testing::ElementsAre;
using testing::HasSubstr;

TEST(CheckStatusPages, HoldThirtyOnePhotographsEachAndARest)
{
    const std::tuple<int, int, int> cases[] = {{0, 1, 0},  {1, 1, 1},     {30, 1, 30},
                                               {31, 2, 0}, {32, 2, 1},    {62, 3, 0},
                                               {63, 3, 1}, {1000, 33, 8}, {10000, 323, 18}};
    for (const auto& [photos, pages, last] : cases) {
        const CArray<int> sizes = PageSizes(photos);
        EXPECT_EQ(sizes.GetSize(), pages) << photos;
        EXPECT_EQ(sizes[sizes.GetSize() - 1], last) << photos;
        for (int page = 0; page < sizes.GetSize() - 1; ++page) EXPECT_EQ(sizes[page], 31);
    }
    EXPECT_EQ(FirstPhotoRow(0), 2);
    EXPECT_EQ(FirstPhotoRow(1), 34) << "the 32nd photograph";
    EXPECT_TRUE(FitsSheet(2048, SpreadsheetFormat::Xls));
    EXPECT_FALSE(FitsSheet(2049, SpreadsheetFormat::Xls));
    EXPECT_TRUE(FitsSheet(2049, SpreadsheetFormat::Xlsx));
}

TEST(CheckStatusCells, AreWhatASheetCanHold)
{
    const auto repeat = [](int count, const CString& text) {
        CString all;
        for (int i = 0; i < count; ++i) all += text;
        return all;
    };
    const std::pair<CString, CString> cases[] = {
        {"=1+1", "=1+1"},
        {"一\r\n二\r三\n四", "一\n二\n三\n四"},
        {CString("a\tb\0c\x1b", 6), "a b c "},
        {repeat(32767, "あ"), repeat(32767, "あ")},
        {repeat(32768, "あ"), repeat(32766, "あ") + "…"},
        {repeat(16384, "𠮷"), repeat(16383, "𠮷") + "…"},
        {"\xEF\xBF\xBF", " "},
    };
    for (const auto& [text, expected] : cases) EXPECT_EQ(CellText(text), expected);
}

/// A spreadsheet application that keeps what is written, and fails where it is told.
struct Sheet
{
    std::map<int, Row> rows;
    CString repeated;
    CString failing;
    std::set<CString> alive;
    CString form;

    bool Does(const CString& operation) const { return failing != operation; }
};

class FakeBook : public SpreadsheetBook
{
public:
    explicit FakeBook(Sheet& shown) : sheet(shown) { sheet.alive.insert("book"); }
    ~FakeBook() override { sheet.alive.erase("book"); }

    bool RepeatRows(int rows, int columns, int times) override
    {
        sheet.repeated = Format("%dx%d %d times", rows, columns, times);
        return sheet.Does("repeat");
    }
    bool WriteTexts(int firstRow, const std::vector<Row>& rows) override
    {
        for (const Row& row : rows) sheet.rows[firstRow++] = row;
        return sheet.Does("write");
    }
    bool Save(const CString& path, SpreadsheetFormat) override
    {
        if (!sheet.Does("save")) return false;
        std::ofstream(path) << "new";
        return true;
    }

private:
    Sheet& sheet;
};

class FakeApplication : public SpreadsheetApplication
{
public:
    explicit FakeApplication(Sheet& shown) : sheet(shown) { sheet.alive.insert("application"); }
    ~FakeApplication() override { sheet.alive.erase("application"); }

    std::unique_ptr<SpreadsheetBook> Open(const CString& path) override
    {
        std::ifstream file(path, std::ios::binary);
        sheet.form = {std::istreambuf_iterator<char>(file), {}};
        return sheet.Does("open") ? std::make_unique<FakeBook>(sheet) : nullptr;
    }

private:
    Sheet& sheet;
};

/// A report of a delivery of some photographs on the way to the file 検査 結果.xls.
struct Report
{
    explicit Report(int photos)
        : sample(DeliveryBuilder({.photos = photos, .drawings = 0, .images = false}))
    {
        SetEnvironment({Registry(temp.Path("user.ini"), temp.Path("machine.ini")),
                        {"", temp.Path(), temp.Path(), temp.Path(), temp.Path()},
                        {}});
    }
    Report(const Report&) = delete;
    Report& operator=(const Report&) = delete;

    ToviCheckStatusFileOut Writer()
    {
        return {*sample.document, *sample.document->GetLabelManager(),
                [this](const CString& folder,
                       const auto& giveUp) -> std::unique_ptr<SpreadsheetApplication> {
                    EXPECT_THAT(folder, HasSubstr("/QV-ExcelData/"));
                    if (giveUp() || !sheet.Does("start")) return nullptr;
                    return std::make_unique<FakeApplication>(sheet);
                }};
    }
    Outcome Write() { return Writer().FileOut("報告", output); }
    void ExpectNothingLeft() const
    {
        EXPECT_TRUE(sheet.alive.empty());
        EXPECT_FALSE(std::filesystem::exists(temp.Path("QVScratch/QV-SUITE/QV-ExcelData")));
    }

    OpenedSample sample;
    TempFolder temp;
    CString output = temp.Path("検査 結果.xls");
    Sheet sheet;
};

TEST(CheckStatus, WritesARowForEachPhotographInTheCurrentOrder)
{
    Report report(33);
    ToviData& document = *report.sample.document;
    document.GetLabelManager()->GetLabelAttribute(LabelNg1).SetName("撮り直し");
    const struct
    {
        std::vector<unsigned int> labels;
        const char* comment;
        const char* result;
        const char* findings;
    } cases[] = {
        {{}, "", "未検査", ""},
        {{LabelOk}, "", "ＯＫ", ""},
        {{LabelOk}, "X", "ＯＫ", "X"},
        {{LabelNg1, LabelNg3}, "X", "ＮＧ", "撮り直し、不足、X"},
        {{LabelOk, LabelNg2}, "", "ＯＫ", "誤記"},
        {{LabelFree}, "=A1\r\n@", "未検査", "=A1\n@"},
    };
    int position = 0;
    document.GetLabelManager()->GetLabelAttribute(LabelNg2).SetName("誤記");
    document.GetLabelManager()->GetLabelAttribute(LabelNg3).SetName("不足");
    for (const auto& c : cases) {
        const int photo = document.GetPhotoIndex(position++);
        for (const unsigned int label : c.labels) PasteLabel(document, photo, label);
        SetComment(document, photo, c.comment);
    }
    ASSERT_EQ(report.Write(), Outcome::Written);
    EXPECT_EQ(report.sheet.repeated, "32x5 2 times");
    EXPECT_EQ(report.sheet.rows.size(), 33u);
    EXPECT_FALSE(report.sheet.rows.contains(1) || report.sheet.rows.contains(33)) << "headers";
    position = 0;
    for (const auto& c : cases) {
        const ToviPhoto& photo = *document.GetPhoto(position);
        EXPECT_THAT(report.sheet.rows[2 + position],
                    ElementsAre(photo.GetTitle(report.sample.DefIndex("シリアル番号")),
                                photo.GetTitle(report.sample.DefIndex("写真タイトル")),
                                photo.GetTitle(report.sample.DefIndex("撮影箇所")), c.result,
                                c.findings))
            << position;
        ++position;
    }
    EXPECT_EQ(report.sheet.rows[35][0],
              document.GetPhoto(32)->GetTitle(report.sample.DefIndex("シリアル番号")));
    EXPECT_FALSE(report.sheet.form.empty());
    EXPECT_EQ(report.temp.Read("検査 結果.xls"), "new");
    report.ExpectNothingLeft();
}

TEST(CheckStatus, KeepsTheOldFileWhenItFails)
{
    const std::pair<const char*, Outcome> cases[] = {
        {"start", Outcome::NotStarted},         {"open", Outcome::ApplicationFailed},
        {"repeat", Outcome::ApplicationFailed}, {"write", Outcome::ApplicationFailed},
        {"save", Outcome::ApplicationFailed},   {"", Outcome::Written}};
    for (const auto& [failing, outcome] : cases) {
        Report report(2);
        report.temp.Write("検査 結果.xls", "old");
        report.sheet.failing = failing;
        EXPECT_EQ(report.Write(), outcome) << failing;
        EXPECT_EQ(report.temp.Read("検査 結果.xls"), outcome == Outcome::Written ? "new" : "old");
        report.ExpectNothingLeft();
    }
}

TEST(CheckStatus, RefusesAnOutputThatIsOpenOrProtected)
{
    Report report(2);
    report.temp.Write("検査 結果.xls", "old");
    for (const char* lock : {".~lock.検査 結果.xls#", "~$検査 結果.xls"}) {
        const CString path = report.temp.Write(lock, "");
        EXPECT_EQ(report.Write(), Outcome::OutputOpen);
        std::filesystem::remove(path);
    }
    chmod(report.output.c_str(), 0444);
    EXPECT_EQ(report.Write(), Outcome::OutputReadOnly);
    EXPECT_EQ(report.temp.Read("検査 結果.xls"), "old");
    report.output = report.sample.temp.Path("PHOTO/r.xls");
    EXPECT_EQ(report.Write(), Outcome::InDelivery);
    std::filesystem::rename(report.sample.temp.Path("INDEX_C.XML"),
                            report.sample.temp.Path("PHOTO_JH.XML"));
    report.output = report.sample.temp.Path("r.xls");
    EXPECT_EQ(report.Write(), Outcome::InDelivery) << "an index of old times";
    EXPECT_TRUE(report.sheet.rows.empty()) << "before any photograph is written";
    report.ExpectNothingLeft();
}

TEST(CheckStatus, NeedsItsFormAndAWorkFolder)
{
    Report report(1);
    InstallHostServices({&report.sample.services.user, nullptr, "Tovi", report.temp.Path("tovi")});
    EXPECT_EQ(report.Write(), Outcome::NoForm);
    report.ExpectNothingLeft();
    report.temp.Write("file", "");
    SetEnvironment(
        {Registry(report.temp.Path("user.ini"), report.temp.Path("machine.ini")),
         {"", report.temp.Path("file/documents"), "", "", report.temp.Path("file/cache")},
         {}});
    EXPECT_EQ(report.Write(), Outcome::NoWorkFolder);
}

TEST(CheckStatus, MakesDoWithTheTemporaryFolder)
{
    Report report(1);
    const CString home = report.temp.MakeFolder("home");
    const CString temporary = report.temp.MakeFolder("temporary");
    SetEnvironment({Registry(report.temp.Path("user.ini"), report.temp.Path("machine.ini")),
                    {"", home, "", temporary, home},
                    {}});
    const auto writeWithRoomIn = [&report](const CString& place) {
        SetFreeSpaceQuery([place](const CString& folder) {
            return folder.starts_with(place) ? std::uint64_t{1} << 30 : std::uint64_t{0};
        });
        return report.Write();
    };
    EXPECT_EQ(writeWithRoomIn(temporary), Outcome::Written);
    EXPECT_EQ(writeWithRoomIn("nowhere"), Outcome::NoWorkFolder);
    const CString own = PrivateTemporaryFolder(temporary);
    std::filesystem::remove_all(own);
    std::filesystem::create_directory_symlink(home, own);
    EXPECT_EQ(writeWithRoomIn(temporary), Outcome::NoWorkFolder) << "somebody else's";
    EXPECT_TRUE(std::filesystem::is_empty(home + "/QVScratch/QV-SUITE"));
    SetFreeSpaceQuery({});
}

TEST(CheckStatus, StopsAtACancel)
{
    Report report(40);
    report.temp.Write("検査 結果.xls", "old");
    report.sample.services.user.cancelAtPumps = {70};
    EXPECT_EQ(report.Write(), Outcome::Cancelled);
    EXPECT_EQ(report.sheet.rows.size(), 31u) << "the first page alone";
    EXPECT_EQ(report.temp.Read("検査 結果.xls"), "old");
    report.ExpectNothingLeft();
}

TEST(CheckStatus, AsksForTheFileAndTellsTheOutcome)
{
    using Call = ScriptedUserInterface::Call;
    using Kind = ScriptedUserInterface::CallKind;
    const std::tuple<const char*, bool, const char*, MessageIcon> cases[] = {
        {"", true, "EXCELファイルへの書き込みが正常に終了しました。", MessageIcon::Information},
        {"save", true, "EXCELファイルへの書き込みに失敗しました。", MessageIcon::Warning},
        {"start", false,
         "EXCELが起動できません。インストールされていないか、正しくセットアップされていない可能性が"
         "あります。",
         MessageIcon::Information},
    };
    for (const auto& [failing, chosen, message, icon] : cases) {
        Report report(1);
        ScriptedUserInterface& user = report.sample.services.user;
        user.saveFiles = {report.output};
        report.sheet.failing = failing;
        const bool written = *failing == '\0';
        EXPECT_EQ(report.Writer().FileOut("報告"), written);
        std::vector<Call> expected;
        if (chosen) expected.push_back({Kind::SaveQuestion, "検査結果", "", {}, {}, {}});
        expected.push_back({Kind::Message, message, "報告", MessageButtons::Ok, icon, {}});
        if (written) expected.push_back({Kind::OpenFile, report.output, "", {}, {}, {}});
        EXPECT_EQ(user.calls, expected) << failing;
        report.ExpectNothingLeft();
    }
    Report report(1);
    EXPECT_FALSE(report.Writer().FileOut("報告"));
    EXPECT_TRUE(report.sample.services.user.Messages().IsEmpty()) << "given up without a word";
    for (const FileKind& kind : report.sample.services.user.saveQuestion.otherKinds) {
        EXPECT_NE(FormatOfReport("r." + kind.extension), SpreadsheetFormat::Xls) << kind.kind;
    }
}

TEST(CheckStatus, AsksAgainForAFolderOutsideTheDelivery)
{
    Report report(1);
    ScriptedUserInterface& user = report.sample.services.user;
    user.saveFiles = {report.sample.temp.Path("PHOTO/PIC/r.xls"), report.sample.temp.Path("r.xls"),
                      report.output};
    CString place = report.temp.Path("橋 検査結果");
    EXPECT_TRUE(report.Writer().FileOut("報告", &place));
    EXPECT_EQ(user.saveQuestion.name, "橋 検査結果");
    EXPECT_EQ(user.Messages().GetSize(), 3) << "two refusals and the outcome";
    EXPECT_EQ(place, report.output);
    EXPECT_FALSE(report.Writer().FileOut("報告", &place));
    EXPECT_EQ(place, "") << "given up";
}

TEST(CheckStatus, StopsWaitingForTheApplicationAtACancel)
{
    Report report(1);
    ScriptedUserInterface& user = report.sample.services.user;
    user.cancelAtPumps = {2};
    EXPECT_FALSE(report.Writer().FileOut("報告"));
    EXPECT_EQ(user.Messages()[0], "EXCELファイルへの書き込みをキャンセルしました。");
    EXPECT_EQ(user.calls.size(), 1u) << "no question for a file";
    report.ExpectNothingLeft();
}
} // namespace
