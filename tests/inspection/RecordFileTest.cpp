#include "inspection/RecordFile.h"

#include "inspection/RecordHold.h"
#include "review/LabelEdits.h"
#include "support/Labels.h"
#include "support/OpenedSample.h"
#include "work/Environment.h"

#include <gmock/gmock.h>

namespace
{
using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;
using Outcome = RecordFile::Outcome;

/// An inspection of eight photographs that is open here, and another program that saves the same
/// record.
class OpenRecord : public testing::Test
{
protected:
    OpenRecord()
    {
        const CString work = temp.MakeFolder("work");
        SetEnvironment({Registry(temp.Path("user.ini"), temp.Path("machine.ini")),
                        {"", work, work, work, work},
                        {}});
        Paste(0, LabelOk);
        EXPECT_EQ(Save().outcome, Outcome::Saved);
    }

    void Paste(int photo, unsigned int slot) const { PasteLabel(*sample.document, photo, slot); }
    void SetAll(const PhotoReviews& reviews) const
    {
        LabelEdits& edits = sample.document->GetLabelEdits();
        edits.Apply(
            LabelEdits::Make(LabelEdit::RecordLoad, sample.document->GetReviews(), reviews));
    }
    RecordFile::SaveResult Save() { return record.Save(*sample.document, path); }

    /// Another program puts \p slot on \p photo in the record as it stands.
    void OtherPastes(int photo, unsigned int slot) const
    {
        const PhotoReviews mine = sample.document->GetReviews();
        RecordFile other;
        EXPECT_TRUE(other.Load(*sample.document, path, problem)) << problem;
        Paste(photo, slot);
        EXPECT_EQ(other.Save(*sample.document, path).outcome, Outcome::Saved);
        SetAll(mine);
        sample.document->SetCheckStatusChanged(true);
    }

    /// The labels in the file \p name, a digit for each slot and a comma behind each photograph.
    CString Saved(const CString& name = "r.xml") const
    {
        const PhotoReviews mine = sample.document->GetReviews();
        RecordFile file;
        EXPECT_TRUE(file.Load(*sample.document, temp.Path(name), problem)) << problem;
        const CString text = Here();
        SetAll(mine);
        return text;
    }
    CString Here() const
    {
        CString text;
        for (const PhotoReview& review : sample.document->GetReviews()) {
            for (unsigned int slot = 0; slot < labelCount; ++slot) {
                if (review.labels[slot]) text += std::to_string(slot);
            }
            text += ',';
        }
        return text;
    }

    OpenedSample sample{DeliveryBuilder({.photos = 8, .drawings = 0, .images = false})};
    ScriptedUserInterface& user = sample.services.user;
    /// Where no delivery is.
    TempFolder temp;
    CString path = temp.Path("r.xml");
    RecordFile record;
    mutable CString problem;
};

TEST_F(OpenRecord, AsksNothingWhileNobodyElseSaves)
{
    Paste(1, LabelNg1);
    EXPECT_EQ(Save().outcome, Outcome::Saved);
    std::filesystem::last_write_time(path, std::filesystem::file_time_type::clock::now());
    EXPECT_EQ(Save().outcome, Outcome::Saved) << "the same content at another time";
    std::filesystem::remove(path);
    EXPECT_EQ(Save().outcome, Outcome::Saved) << "what is gone has nothing to lose";
    EXPECT_EQ(Saved(), "0,1,,,,,,,");
    EXPECT_EQ(user.choice.title, "");
}

TEST_F(OpenRecord, BringsBothTogether)
{
    OtherPastes(1, LabelNg1);
    Paste(2, LabelNg2);
    user.options = {0};
    sample.host.hints.clear();
    EXPECT_EQ(Save().outcome, Outcome::Saved);
    EXPECT_EQ(sample.host.hints, std::vector<int>{ToviData::HintLabelsChanged});
    EXPECT_FALSE(sample.document->IsCheckStatusChanged());
    EXPECT_EQ(Here(), "0,1,2,,,,,,");
    EXPECT_EQ(Saved(), Here());
    EXPECT_THAT(user.choice.options[0].explanation,
                AllOf(HasSubstr("変えた1枚と、ここで変えた1枚")));
    EXPECT_EQ(user.choice.notes.GetSize(), 1);
    EXPECT_EQ(Save().outcome, Outcome::Saved) << "and now both are known";
}

TEST_F(OpenRecord, AsksWhoseChangesHoldWhereBothHaveChangedAPhotograph)
{
    for (const int side : {0, 1}) {
        SCOPED_TRACE(side);
        for (int photo = 1; photo < 8; ++photo) {
            RemoveAllLabel(*sample.document, photo);
        }
        ASSERT_EQ(Save().outcome, Outcome::Saved);
        for (int photo = 1; photo < 7; ++photo) OtherPastes(photo, LabelNg1);
        for (int photo = 1; photo < 7; ++photo) Paste(photo, LabelNg2);
        Paste(7, LabelFree);
        user.options = {side};
        EXPECT_EQ(Save().outcome, Outcome::Saved);
        EXPECT_EQ(Saved(), side == 0 ? "0,2,2,2,2,2,2,5," : "0,1,1,1,1,1,1,5,");
        EXPECT_THAT(user.choice.notes[1],
                    AllOf(HasSubstr("6枚あります"), HasSubstr("P0000002.JPG"),
                          HasSubstr("P0000006.JPG"), testing::Not(HasSubstr("P0000007.JPG")),
                          HasSubstr("ほか1枚")));
    }
}

TEST_F(OpenRecord, NeverWritesOverWhatOthersHaveSaved)
{
    OtherPastes(1, LabelNg1);
    Paste(2, LabelNg2);
    EXPECT_EQ(Save().outcome, Outcome::GivenUp);
    user.options = {1};
    EXPECT_EQ(Save().outcome, Outcome::GivenUp) << "no other name was chosen";
    EXPECT_TRUE(user.saveQuestion.name.starts_with("r (2).xml"));
    temp.Write("r (2).xml", "");
    user.options = {1};
    user.saveFiles = {temp.Path("二.xml")};
    const RecordFile::SaveResult result = Save();
    EXPECT_EQ(user.saveQuestion.name, "r (3).xml");
    EXPECT_EQ(result.outcome, Outcome::Elsewhere);
    EXPECT_EQ(Saved(), "0,1,,,,,,,");
    EXPECT_TRUE(sample.document->IsCheckStatusChanged());
    EXPECT_EQ(record.Save(*sample.document, result.text).outcome, Outcome::Saved);
    EXPECT_EQ(Saved("二.xml"), "0,,2,,,,,,");
    EXPECT_EQ(Saved(), "0,1,,,,,,,");
}

TEST_F(OpenRecord, TakesUpAnotherDeliverysRecordOnlyIfTheUserWantsIt)
{
    temp.Write("r.xml", ReplaceAll(temp.Read("r.xml"), "names=\"", "names=\"0"));
    RemoveAllLabel(*sample.document, 0);
    EXPECT_FALSE(record.Load(*sample.document, path, problem));
    EXPECT_EQ(problem, "") << "the user has said no";
    EXPECT_THAT(user.choice.notes[0], HasSubstr("ファイル名かシリアル番号が違います"));
    EXPECT_EQ(Here(), ",,,,,,,,");

    Paste(1, LabelNg1);
    user.options = {0};
    EXPECT_EQ(Save().outcome, Outcome::GivenUp);
    EXPECT_EQ(user.choice.options.GetSize(), 1) << "what is another work's is never merged";

    user.options = {0};
    EXPECT_TRUE(record.Load(*sample.document, path, problem));
    EXPECT_EQ(Here(), "0,,,,,,,,");
    EXPECT_EQ(Save().outcome, Outcome::Saved);
    EXPECT_EQ(Saved(), Here()) << "from now on it is this delivery's";
}

TEST_F(OpenRecord, SeesWhatComesWhileTheUserThinks)
{
    /// Another program saves while the question stands.
    struct SlowUser : ScriptedUserInterface
    {
        bool Choose(const Choice& /*asked*/, int& option) override
        {
            if (++questions == 1) meanwhile();
            option = 0;
            return true;
        }
        std::function<void()> meanwhile;
        int questions = 0;
    } slow;
    slow.meanwhile = [this] { OtherPastes(3, LabelNg3); };
    InstallHostServices({&slow, &sample.services.profile, "Tovi", RunningProgramPath()});
    OtherPastes(1, LabelNg1);
    Paste(2, LabelNg2);
    EXPECT_EQ(Save().outcome, Outcome::Saved);
    EXPECT_EQ(slow.questions, 2);
    EXPECT_EQ(Saved(), "0,1,2,3,,,,,");
    InstallHostServices({&user, &sample.services.profile, "Tovi", RunningProgramPath()});
}

TEST_F(OpenRecord, FollowsALinkToItsRecord)
{
    temp.Write("real/r.xml", temp.Read("r.xml"));
    std::filesystem::remove(path);
    std::filesystem::create_symlink("real/r.xml", path);
    EXPECT_TRUE(record.Load(*sample.document, path, problem)) << problem;
    Paste(4, LabelNg1);
    EXPECT_EQ(Save().outcome, Outcome::Saved);
    EXPECT_TRUE(std::filesystem::is_symlink(path));
    EXPECT_EQ(Saved("real/r.xml"), "0,,,,1,,,,");
    RecordHold hold(temp.Path("real/../real/r.xml"));
    EXPECT_EQ(hold.Take(), RecordHold::Outcome::Held);
    EXPECT_EQ(RecordHold(path).Take({}), RecordHold::Outcome::Others);
}

TEST_F(OpenRecord, WaitsForWhoeverHoldsIt)
{
    const CString before = temp.Read("r.xml");
    RecordHold hold(path);
    ASSERT_EQ(hold.Take(), RecordHold::Outcome::Held);
    Paste(1, LabelNg1);
    user.pumps = 0;
    user.cancelAtPumps = {3};
    EXPECT_EQ(Save().outcome, Outcome::GivenUp);
    EXPECT_THAT(user.progress,
                testing::Contains(AllOf(StartsWith("message r.xml が空くのを待っています"),
                                        HasSubstr("tovi-inspection-tests"),
                                        HasSubstr(std::to_string(getpid())))));
    EXPECT_EQ(temp.Read("r.xml"), before);
    user.cancelAtPumps = {};
    user.onPump = [&hold] { hold.Release(); };
    EXPECT_EQ(Save().outcome, Outcome::Saved);
    EXPECT_EQ(Saved(), "0,1,,,,,,,");
}
} // namespace
