#include "sample/DeliveryBuilder.h"
#include "sample/SampleExif.h"
#include "support/RunProgram.h"
#include "support/Standins.h"

#include "platform/host/HostServices.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

namespace
{
using Json = nlohmann::json;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

/// A copy of the program in a folder of its own, with stand-ins for the verifiers beside it, and a
/// delivery with a photograph for each answer.
class Verification : public testing::Test
{
protected:
    Verification()
    {
        const CString program = RunningProgramPath();
        const CString folder = program.substr(0, program.rfind('/') + 1);
        std::filesystem::create_directories(programs.Path());
        for (const char* name : {"tovi", "libToviCore.so", "READITEM.XML"}) {
            std::filesystem::copy_file(folder + name, programs.Path(name));
        }
    }

    void InstallVerifiers() const
    {
        Standins::Install("JACICCHS", programs.Path());
        Standins::Install("RVRFYJPG", programs.Path());
    }

    /// Writes a delivery with a photograph of a camera of the maker's for each of the \p answers.
    void WriteDelivery(const std::vector<CString>& answers) const
    {
        const int photos = static_cast<int>(answers.size());
        DeliveryBuilder builder({.photos = photos, .drawings = 0, .images = false});
        const SampleShot shot{.takenAt = std::chrono::sys_days(std::chrono::year(2024) / 5 / 1),
                              .maker = "KAEDE",
                              .model = "G700 SE",
                              .width = 16,
                              .height = 12,
                              .shutter = 125,
                              .aperture = 40,
                              .exposureBias = 0,
                              .flash = false,
                              .position = {}};
        for (int i = 0; i < photos; ++i) {
            const CString name = Format("P%d.JPG", i);
            builder.Set(i, "写真ファイル名", name);
            temp.Write("d/PHOTO/PIC/" + name,
                       WithExif("\xFF\xD8\xFF\xD9", shot) + answers[static_cast<std::size_t>(i)]);
        }
        builder.Write(temp.Path("d"));
    }

    ProgramResult Run(std::vector<CString> options) const
    {
        options.insert(options.begin(), {programs.Path("tovi"), "verify", temp.Path("d")});
        return RunProgram(options, temp.Path("config"));
    }

    /// A letter for each result: N none, U unaltered, A altered, ? unknown.
    static CString Letters(const ProgramResult& result)
    {
        if (result.status != 0) return result.errors;
        CString letters;
        for (const Json& photo : Json::parse(result.output)) {
            const std::string name = photo["result"];
            letters += name == "unaltered" ? 'U'
                       : name == "altered" ? 'A'
                       : name == "none"    ? 'N'
                                           : '?';
        }
        return letters;
    }

    TempFolder programs;
    TempFolder temp;
    Standins standins;
};

TEST_F(Verification, FollowsTheStoredTypesAndLeavesThem)
{
    InstallVerifiers();
    WriteDelivery({"hash=1 rvj=1", "hash=0 rvj=0"});
    EXPECT_EQ(Letters(Run({})), "UA");
    EXPECT_THAT(temp.Read("config/tovi/profile.ini"), Not(HasSubstr("VisualSetting")));
    const CString profile = "[VisualSetting]\nDoEditCheck=100\nEditCheckTypes=0,,1\n";
    temp.Write("config/tovi/profile.ini", profile);
    EXPECT_EQ(Letters(Run({})), "AU");
    EXPECT_EQ(Letters(Run({"--types", "1"})), "UA");
    EXPECT_THAT(temp.Read("config/tovi/profile.ini"), EndsWith(profile));
    standins.TakeCalls();
    const ProgramResult one = Run({"--at", "1", "--types", "0"});
    EXPECT_EQ(Json::parse(one.output), Json::parse(R"([{"index":1,"result":"unaltered"}])"));
    EXPECT_EQ(std::ranges::count(standins.TakeCalls(), '\n'), 1);
}

TEST_F(Verification, SaysWhatIsWrong)
{
    WriteDelivery({"hash=1"});
    const ProgramResult without = Run({});
    EXPECT_EQ(Letters(without), "?");
    EXPECT_THAT(without.errors, HasSubstr("JACICCHS.so）が " + programs.Path() + "/ にないか"));
    programs.Write("JACICCHS.so", "no library");
    EXPECT_THAT(Run({}).errors, HasSubstr("読み込めません"));
    std::filesystem::remove(programs.Path("JACICCHS.so"));
    Standins::Install("JACICCHS", programs.Path());
    EXPECT_EQ(Run({"--types", "0,2,1"}).errors, "");
    EXPECT_THAT(Run({"--types", "0"}).errors, HasSubstr("RVRFYJPG.so"));
    for (const char* types : {"3", "0,,1", "0,x", "1 ", "256", "0,1,2,0,1,2,0,1,2,0,1"}) {
        const ProgramResult result = Run({"--types", types});
        EXPECT_EQ(result.status, 2) << types;
        EXPECT_THAT(result.errors, HasSubstr("0,2,1 のように")) << types;
    }
    EXPECT_EQ(Run({"--at", "1"}).status, 2);
}
} // namespace
