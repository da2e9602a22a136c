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

/// What the verifiers answer for one photograph, and what that means.
struct Answer
{
    const char* key;
    int code;
    char result;
};

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

    void WriteDelivery(const std::vector<Answer>& answers) const
    {
        DeliveryBuilder builder(
            {.photos = static_cast<int>(answers.size()), .drawings = 0, .images = false});
        builder.Write(temp.Path("d"));
        for (std::size_t i = 0; i < answers.size(); ++i) {
            const Answer& answer = answers[i];
            const bool isSvg = CString(answer.key) == "svg hash=";
            const CString name = Format("P%zu.%s", i, isSvg ? "sVg" : "JPG");
            builder.Set(static_cast<int>(i), "写真ファイル名", name);
            temp.Write("d/PHOTO/PIC/" + name, CameraFile(isSvg ? "" : "G700 SE") + answer.key +
                                                  std::to_string(answer.code));
        }
        temp.Write("d/PHOTO/PHOTO.XML", ReplaceAll(builder.PhotoXml(), "Shift_JIS", "UTF-8"));
    }

    static std::string CameraFile(std::string_view model)
    {
        if (model.empty()) return "<svg/>";
        const SampleShot shot{.takenAt = std::chrono::sys_days(std::chrono::year(2024) / 5 / 1),
                              .maker = "KAEDE",
                              .model = model,
                              .width = 16,
                              .height = 12,
                              .shutter = 125,
                              .aperture = 40,
                              .exposureBias = 0,
                              .flash = false,
                              .position = {}};
        return WithExif("\xFF\xD8\xFF\xD9", shot);
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

TEST_F(Verification, TellsTheMeaningOfEveryAnswer)
{
    InstallVerifiers();
    std::vector<Answer> answers = {
        {"rvj=", 0, 'U'}, {"rvj=", 1, 'A'}, {"rvj=", 2, '?'}, {"rvj=", 3, '?'}, {"rvj=", -1, '?'}};
    const auto add = [&answers](const char* key, char result, const std::vector<int>& codes) {
        for (const int code : codes) answers.push_back({key, code, result});
    };
    add("hash=", 'U', {1});
    add("hash=", 'A', {0, -1, -2, -307});
    add("hash=", '?', {-305, -304, -303, -3, -306, 2, -301, -21});
    add("svg hash=", 'U', {1});
    add("svg hash=", 'A', {0, -1, -2, -3, -23, -24, -25, -43, -44, -45});
    add("svg hash=", '?',
        {-21, -22, -41, -42, -61, -81, -82, -83, -84, -85, -86, -301, -303, -304, -305, -307, -4,
         -26, 2});
    WriteDelivery(answers);
    CString expected;
    for (const Answer& answer : answers) expected += answer.result;
    const ProgramResult result = Run({"--types", "0,2,1"});
    EXPECT_EQ(Letters(result), expected);
    EXPECT_EQ(result.errors, "");
}

TEST_F(Verification, FollowsTheStoredTypesAndLeavesThem)
{
    InstallVerifiers();
    WriteDelivery({{"hash=1 rvj=", 1, 'A'}, {"hash=0 rvj=", 0, 'U'}});
    EXPECT_EQ(Letters(Run({})), "UA");
    EXPECT_THAT(temp.Read("config/tovi/profile.ini"), Not(HasSubstr("VisualSetting")));
    const std::pair<CString, const char*> stored[] = {{"0", "AU"},
                                                      {"2", "UA"},
                                                      {"0,2,1", "AU"},
                                                      {"1,0", "UA"},
                                                      {"9", "??"},
                                                      {"0,,1", "AU"},
                                                      {"9,9,9,9,9,9,9,9,9,9,0", "??"}};
    for (const auto& [types, letters] : stored) {
        const CString profile = "[VisualSetting]\nDoEditCheck=100\nEditCheckTypes=" + types + "\n";
        temp.Write("config/tovi/profile.ini", profile);
        EXPECT_EQ(Letters(Run({})), letters) << types;
        EXPECT_EQ(Letters(Run({"--types", "1"})), "UA") << types;
        EXPECT_THAT(temp.Read("config/tovi/profile.ini"), EndsWith(profile));
    }
    standins.TakeCalls();
    const ProgramResult one = Run({"--at", "1", "--types", "0"});
    EXPECT_EQ(Json::parse(one.output), Json::parse(R"([{"index":1,"result":"unaltered"}])"));
    EXPECT_EQ(std::ranges::count(standins.TakeCalls(), '\n'), 1);
}

TEST_F(Verification, SaysWhatIsWrong)
{
    WriteDelivery({{"hash=", 1, 'U'}});
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
