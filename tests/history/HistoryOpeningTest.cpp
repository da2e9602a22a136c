// How an inspection begins: what the user is asked, with one program and with two.

#include "history/HistoryOpening.h"
#include "history/HistoryPath.h"
#include "history/HistoryQuestions.h"
#include "review/LabelRules.h"
#include "support/DiskMount.h"
#include "support/OpenedSample.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <thread>

namespace
{
using testing::HasSubstr;
using testing::IsEmpty;
using testing::MatchesRegex;
using Access = InspectionHistory::Access;

/// A program that has the sample open.
struct Program
{
    Program(const OpenedSample& sample, const CString& named = {})
    {
        ToviEnouDataFactory factory;
        data.reset(factory.Create(nullptr, sample.temp.Path("PHOTO").c_str(), PhotoXMLMlit, nullptr,
                                  nullptr));
        OpenedHistory opened = OpenHistory(*data, named, HistoryPathOf(data->RootPath()));
        history = std::move(opened.history);
        notice = opened.notice;
        record = opened.record;
        if (opened.mark) file.Resume(*opened.mark);
        if (record.empty()) return;
        EXPECT_TRUE(file.Load(*data, record, notice)) << notice;
        history->NoteRecord(file.GetMark());
    }
    ~Program() { history.reset(); }

    void Paste(int photo, unsigned int slot)
    {
        LabelEdits& edits = data->GetLabelEdits();
        edits.Apply(edits.Make(LabelEdit::OnePhoto, {&photo, 1},
                               [slot](PhotoReview& review) { LabelRules::Paste(review, slot); }));
    }
    void Save(const CString& path)
    {
        EXPECT_EQ(file.Save(*data, path).outcome, RecordFile::Outcome::Saved);
        history->NoteRecord(file.GetMark());
    }
    /// The slots of the labels of all photographs.
    CString Labels() const
    {
        CString text;
        for (const PhotoReview& review : data->GetReviews()) {
            for (unsigned int slot = 0; slot < labelCount; ++slot) {
                if (review.labels[slot]) text += std::to_string(slot);
            }
            text += ',';
        }
        return text;
    }
    /// Waits until \p done, as a window does that looks now and then.
    bool Await(const std::function<bool()>& done) const
    {
        for (int tries = 0; tries < 500 && !done(); ++tries) {
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
            history->Tend();
        }
        return done();
    }

    std::unique_ptr<ToviData> data;
    std::unique_ptr<InspectionHistory> history;
    RecordFile file;
    CString notice;
    CString record;
};

class OpeningAgain : public testing::Test
{
protected:
    OpeningAgain() { setenv("XDG_STATE_HOME", state.Path("state").c_str(), 1); }
    ~OpeningAgain() override { unsetenv("XDG_STATE_HOME"); }

    /// The options of the last question, one a line.
    CString Asked() const
    {
        CString text;
        for (const Choice::Option& option : user.choice.options) text += option.text + '\n';
        return text;
    }

    OpenedSample sample{DeliveryBuilder({.photos = 3, .drawings = 0, .images = false})};
    ScriptedUserInterface& user = sample.services.user;
    TempFolder state;
    CString record = state.Path("r.xml");
};

TEST_F(OpeningAgain, OffersTheLastInspectionAndLosesNoneThatIsRefused)
{
    {
        Program first(sample);
        EXPECT_THAT(user.calls, IsEmpty()) << "nothing is kept of what was only looked at";
        first.Paste(0, LabelOk);
        first.Paste(1, LabelNg2);
    }
    user.options = {0};
    {
        Program again(sample);
        EXPECT_THAT(user.choice.notes[0],
                    MatchesRegex("前回の続き（OK 1、NG 1、未検査 1、[0-9]+月[0-9]+日 "
                                 "[0-9][0-9]:[0-9][0-9]）を開きますか。"));
        EXPECT_EQ(Asked(), "前回の続きを開く\n付箋の付いていない状態から始める\n");
        EXPECT_EQ(again.Labels(), "0,2,,");
        EXPECT_TRUE(again.data->IsCheckStatusChanged());
        EXPECT_THAT(again.history->UndoWords(), HasSubstr("NG2 を付ける"));
    }
    {
        Program fresh(sample);
        EXPECT_EQ(fresh.Labels(), ",,,") << "whoever gives up refuses";
        fresh.Paste(2, LabelFree);
    }
    user.options = {1};
    Program earlier(sample);
    EXPECT_EQ(Asked(),
              "前回の続きを開く\nその前の検査の続きを開く\n付箋の付いていない状態から始める\n");
    EXPECT_EQ(earlier.Labels(), "0,2,,");
}

TEST_F(OpeningAgain, OffersTheSavedRecordBesideLaterChanges)
{
    {
        Program first(sample);
        first.Paste(0, LabelOk);
        first.Save(record);
    }
    user.options = {0};
    {
        Program again(sample);
        EXPECT_EQ(Asked(), "前回の続きを開く\n付箋の付いていない状態から始める\n");
        EXPECT_THAT(user.choice.options[0].explanation, HasSubstr("r.xml に保存済み"));
        EXPECT_EQ(again.file.Path(), record);
        EXPECT_FALSE(again.data->IsCheckStatusChanged());
        again.Paste(1, LabelNg1);
    }
    user.options = {0};
    EXPECT_EQ(Program(sample, record).Labels(), "0,1,,") << "the record that is named hides it";
    EXPECT_EQ(Asked(), "前回の続きを開く\n指定した検査状況 r.xml を開く\n");
    user.options = {1};
    {
        Program saved(sample);
        EXPECT_THAT(Asked(), HasSubstr("\n保存した検査状況 r.xml を開く\n"));
        EXPECT_EQ(saved.Labels(), "0,,,");
    }
    user.calls.clear();
    EXPECT_EQ(Program(sample, record).Labels(), "0,,,");
    EXPECT_THAT(user.calls, IsEmpty()) << "all of it is in the record that is named";
    user.options = {1};
    {
        Program unsaved(sample);
        EXPECT_THAT(Asked(), HasSubstr("\nその前の検査の続きを開く\n"));
        EXPECT_EQ(unsaved.Labels(), "0,1,,");
        unsaved.Save(record);
    }
    std::ofstream(record, std::ios::app) << '\n';
    user.options = {0};
    Program(sample).Paste(2, LabelOk);
    EXPECT_THAT(user.choice.options[1].explanation, HasSubstr("ほかのプログラムで変更"));
    user.options = {0};
    EXPECT_EQ(Program(sample).Labels(), "0,1,0,");
    EXPECT_EQ(Asked(),
              "前回の続きを開く\n保存した検査状況 r.xml を開く\n付箋の付いていない状態から始める\n")
        << "the other is in a record";
}

TEST_F(OpeningAgain, LetsOneProgramAloneChangeIt)
{
    Program first(sample);
    first.Paste(0, LabelOk);
    ASSERT_TRUE(first.Await([&] { return first.history->Writing().waiting == 0; }));
    {
        Program looking(sample);
        EXPECT_THAT(user.choice.notes[0], HasSubstr("検査中です"));
        EXPECT_EQ(looking.Labels(), "0,,,");
        bool told = false;
        looking.history->SetOnRefusal([&told] { told = true; });
        looking.Paste(1, LabelOk);
        EXPECT_TRUE(told && looking.history->Undo().empty());
        EXPECT_EQ(looking.Labels(), "0,,,");
    }
    user.options = {1};
    Program taking(sample);
    EXPECT_EQ(taking.history->GetAccess(), Access::Change);
    EXPECT_TRUE(first.Await([&] { return first.history->GetAccess() == Access::TakenOver; }));
    first.Paste(1, LabelOk);
    EXPECT_EQ(first.Labels(), "0,,,");
    taking.Paste(2, LabelOk);
    EXPECT_TRUE(taking.Await([&] { return taking.history->Writing().waiting == 0; }));
    EXPECT_EQ(Program(sample).Labels(), "0,,0,") << "the lock has gone over, too";
}

TEST_F(OpeningAgain, GoesOnWithoutADisk)
{
    const CString blocking = state.Write("state", "no folder");
    {
        Program program(sample);
        program.Paste(0, LabelOk);
        program.Paste(1, LabelOk);
        EXPECT_TRUE(program.Await([&] { return !program.history->Writing().problem.empty(); }));
        EXPECT_EQ(program.history->Undo(), std::vector{1});
        program.Save(record);
        std::filesystem::remove(blocking);
        EXPECT_TRUE(program.Await([&] { return program.history->Writing().waiting == 0; }));
        EXPECT_EQ(program.history->Writing().problem, "");
    }
    user.options = {0};
    EXPECT_EQ(Program(sample).Labels(), "0,,,");

    std::filesystem::remove_all(blocking);
    const DiskMount full(state.MakeFolder("state"), "tmpfs", "size=48k");
    if (!full.IsThere()) GTEST_SKIP() << "no file system may be mounted here";
    Program program(sample);
    const CString comment(60000, 'x');
    LabelEdits& edits = program.data->GetLabelEdits();
    const int photo = 0;
    edits.Apply(edits.Make(LabelEdit::OnePhoto, {&photo, 1},
                           [&](PhotoReview& review) { LabelRules::EditComment(review, comment); }));
    EXPECT_TRUE(program.Await([&] { return !program.history->Writing().problem.empty(); }));
    EXPECT_THAT(program.history->Writing().problem, HasSubstr("空き容量"));
}

TEST_F(OpeningAgain, TellsWhatBecameOfTheFiles)
{
    const CString folder = sample.temp.Path("PHOTO/PIC/");
    const auto put = [&](const char* name, std::size_t size) {
        sample.temp.Write(CString("PHOTO/pic/") + name, CString(size, 'x'));
    };
    const auto notice = [&] {
        user.options = {0};
        Program program(sample);
        program.Paste(0, LabelFree);
        program.history->CompareFiles();
        EXPECT_TRUE(program.Await([&] { return program.history->HasCompared(); }));
        return program.history->FileNotice();
    };
    std::filesystem::remove_all(folder);
    put("p0000001.jpg", 1);
    put("P0000002.JPG", 2);
    put("Thumbs.db", 3);
    EXPECT_EQ(notice(), "") << "the first time";
    put("p0000003.svg", 3);
    std::filesystem::rename(sample.temp.Path("PHOTO/pic"), sample.temp.Path("PHOTO/PIC"));
    EXPECT_THAT(notice(), HasSubstr("増えたファイル 1件（p0000003.svg）"));
    EXPECT_EQ(notice(), "") << "which is known by now";
    std::filesystem::rename(sample.temp.Path("PHOTO/PIC"), sample.temp.Path("PHOTO/pic"));
    put("p0000001.jpg", 7);
    std::filesystem::remove(sample.temp.Path("PHOTO/pic/P0000002.JPG"));
    for (int again = 0; again < 2; ++again) {
        EXPECT_THAT(notice(), HasSubstr("なくなったファイル 1件（p0000002.jpg）、"
                                        "大きさが変わったファイル 1件（p0000001.jpg）。"));
    }
}

TEST_F(OpeningAgain, PutsADamagedFileAside)
{
    const CString path = HistoryPathOf(sample.temp.Path("PHOTO/"));
    std::filesystem::create_directories(std::filesystem::path(path).parent_path());
    std::ofstream(path) << CString(8192, 'x');
    {
        Program program(sample);
        EXPECT_THAT(program.notice, HasSubstr("壊れていて"));
        EXPECT_TRUE(std::filesystem::exists(path + ".damaged-1"));
        program.Paste(0, LabelOk);
    }
    user.options = {0};
    EXPECT_EQ(Program(sample).Labels(), "0,,,");
    const auto mode = [](const std::filesystem::path& of) {
        return std::filesystem::status(of).permissions();
    };
    EXPECT_EQ(mode(path), std::filesystem::perms(0600));
}
} // namespace
