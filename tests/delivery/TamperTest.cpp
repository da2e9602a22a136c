#include "items/ToviPhotoCtrlVisualSetting.h"
#include "photos/ToviPhoto.h"
#include "photos/ToviPhotoArray.h"
#include "support/OpenedSample.h"
#include "support/Standins.h"

#include <gtest/gtest.h>

namespace
{
/// Six photographs with stand-ins for both verifiers. The bytes of the files are what a test
/// writes.
class Tamper : public testing::Test
{
protected:
    Tamper() : sample(DeliveryBuilder({.photos = 6, .drawings = 0, .images = false}))
    {
        Standins::Install("JACICCHS", programFolder.Path());
        Standins::Install("RVRFYJPG", programFolder.Path());
        InstallHostServices(
            {&sample.services.user, nullptr, "Tovi", programFolder.Path() + "/tovi"});
    }

    void WritePhoto(int index, std::string_view bytes)
    {
        const CString path = sample.Photo(index).GetImagePath();
        sample.temp.Write(path.substr(sample.temp.Path().size() + 1), bytes);
    }

    void Apply(bool check, const CString& types, bool force)
    {
        ToviPhotoCtrlVisualSetting setting;
        setting.SetDoEditCheck(check);
        setting.SetEditCheckTypes(types);
        sample.document->SetVisualSetting(setting, force);
    }

    /// Checks every photograph and returns the results.
    CString Check()
    {
        for (ToviPhoto* photo : *sample.document->GetPhotoDataArray()) {
            sample.document->CheckEditJPEG(photo);
        }
        return Results();
    }

    CString Results() const
    {
        CString results;
        for (const ToviPhoto* photo : *sample.document->GetPhotoDataArray()) {
            results += std::to_string(photo->GetEditChkResult());
        }
        return results;
    }

    TempFolder programFolder;
    Standins standins;
    OpenedSample sample;
};

TEST_F(Tamper, NotesTheResultOnEachPhotograph)
{
    for (int i = 0; i < 5; ++i) {
        const char* const codes[] = {"1", "0", "-305", "99", ""};
        WritePhoto(i, CString("hash=") + codes[i]);
    }
    EXPECT_EQ(Check(), "000000");
    Apply(true, "1", false);
    EXPECT_EQ(Check(), "123323");
    WritePhoto(0, "hash=0");
    EXPECT_EQ(Check(), "223323");
    const ToviPhoto copy(sample.Photo(0));
    EXPECT_EQ(copy.GetEditChkResult(), ToviPhoto::EditCheckAltered);
}

TEST_F(Tamper, ForgetsTheResultsWhenTheCheckChanges)
{
    using Setting = std::pair<bool, const char*>;
    const std::tuple<Setting, Setting, bool, bool> cases[] = {
        {{true, "1"}, {true, "1"}, false, false},   {{true, "1"}, {true, "1"}, true, true},
        {{true, "1"}, {true, "2"}, false, true},    {{true, "1"}, {false, "2"}, false, true},
        {{false, "1"}, {false, "2"}, false, false}, {{false, "1"}, {true, "1"}, false, true},
    };
    for (const auto& [before, after, force, isChange] : cases) {
        Apply(before.first, before.second, true);
        sample.Photo(1).SetEditChkResult(ToviPhoto::EditCheckAltered);
        Apply(after.first, after.second, force);
        EXPECT_EQ(Results(), isChange ? "000000" : "020000") << after.second << isChange;
    }
}

TEST_F(Tamper, LeavesTheResultAloneWithoutTheCheck)
{
    WritePhoto(0, "hash=1");
    sample.Photo(0).SetEditChkResult(ToviPhoto::EditCheckAltered);
    sample.document->CheckEditJPEG(&sample.Photo(0));
    EXPECT_EQ(sample.Photo(0).GetEditChkResult(), ToviPhoto::EditCheckAltered);
    Apply(true, "", true);
    EXPECT_EQ(Check(), "000000");
    EXPECT_EQ(standins.TakeCalls(), "");
}

TEST_F(Tamper, JudgesTheVeryFileOfThePhotograph)
{
    Apply(true, "1", true);
    CString path = sample.Photo(0).GetImagePath();
    WritePhoto(0, "hash=1");
    sample.document->CheckEditJPEG(&sample.Photo(0));
    const auto check = [this](const CString& file) {
        ToviPhoto photo(file.c_str());
        sample.document->CheckEditJPEG(&photo);
        return photo.GetEditChkResult();
    };
    const CString altered = path.substr(0, path.size() - 3) + "jpg";
    sample.temp.Write(altered.substr(sample.temp.Path().size() + 1), "hash=0");
    EXPECT_EQ(check(altered), ToviPhoto::EditCheckAltered);
    EXPECT_EQ(check(path), ToviPhoto::EditCheckUnaltered);

    const CString outside = programFolder.Write("outside.JPG", "hash=1");
    std::filesystem::create_symlink(outside, sample.Photo(1).GetImagePath());
    sample.document->CheckEditJPEG(&sample.Photo(1));
    EXPECT_EQ(sample.Photo(1).GetEditChkResult(), ToviPhoto::EditCheckUnknown);
}
} // namespace
