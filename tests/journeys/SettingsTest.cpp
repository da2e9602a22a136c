#include "sample/DeliveryBuilder.h"
#include "support/RunProgram.h"
#include "support/TempFolder.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

namespace
{
using Json = nlohmann::json;
using testing::HasSubstr;

/// A user who changes the settings between commands.
class Settings : public testing::Test
{
protected:
    Settings()
    {
        DeliveryBuilder builder({.photos = 3, .drawings = 0, .images = false});
        for (int i = 0; i < 3; ++i) {
            builder.Set(i, "シリアル番号", std::to_string(9 - i)).Set(i, "撮影箇所", "No.1");
            for (const char* level : {"写真-大分類", "写真区分", "工種", "種別", "細別"}) {
                builder.Set(i, level, "同じ");
            }
        }
        builder.Write(temp.Path("d"));
    }

    ProgramResult Run(std::vector<CString> arguments) const
    {
        arguments.insert(arguments.begin(), "tovi");
        return RunProgram(arguments, temp.Path("config"));
    }
    Json Answer(const std::vector<CString>& arguments) const
    {
        const ProgramResult result = Run(arguments);
        EXPECT_EQ(result.status, 0) << result.errors;
        return Json::parse(result.output);
    }
    CString Current(std::vector<CString> options) const
    {
        options.insert(options.begin(), {"select", delivery});
        return Answer(options)["current"].dump();
    }

    TempFolder temp;
    CString delivery = temp.Path("d");
};

TEST_F(Settings, AreObeyedByTheNextCommand)
{
    EXPECT_EQ(Current({}), "[0,1,2]");
    Answer({"settings", "--set", "sort=on", "--set", "sort-key=シリアル番号"});
    EXPECT_EQ(Current({}), "[2,1,0]");
    EXPECT_EQ(Current({"--sort", "シリアル番号", "--descending"}), "[0,1,2]");
    EXPECT_EQ(Current({}), "[2,1,0]") << "the command line was remembered";
    EXPECT_EQ(Current({"--profile", temp.Path("other.ini")}), "[0,1,2]");

    const Json before = Answer({"tree", delivery});
    Answer({"settings", "--set", "tree=place"});
    EXPECT_EQ(Answer({"tree", delivery}), Answer({"tree", delivery, "--type", "1"}));
    EXPECT_EQ(Answer({"tree", delivery, "--type", "0"}), before);

    Answer({"settings", delivery, "--set", "item:撮影箇所=hide", "--set", "item:工種=show"});
    const CString pairs = Answer({"pairs", delivery, "--at", "1"}).dump();
    EXPECT_THAT(pairs, HasSubstr(R"("item":"工種")"));
    EXPECT_THAT(pairs, Not(HasSubstr("撮影箇所")));
}

TEST_F(Settings, BoundWhatIsRead)
{
    std::filesystem::resize_file(temp.Path("d/PHOTO/PHOTO.XML"), std::uintmax_t{8} << 30);
    const ProgramResult refused = Run({"info", delivery});
    EXPECT_EQ(refused.status, 1);
    EXPECT_THAT(refused.errors, HasSubstr("8192MB あり、読み込む上限の 256MB"));
    std::filesystem::resize_file(temp.Path("d/PHOTO/PHOTO.XML"), std::uintmax_t{300} << 20);
    EXPECT_THAT(Run({"info", delivery}).errors, HasSubstr("256MB"));
    EXPECT_EQ(Answer({"settings", "--set", "reading-limit=300"})["settings"]["reading-limit"],
              "300");
    EXPECT_THAT(Run({"info", delivery}).errors, HasSubstr("制御文字"));
}

TEST_F(Settings, RefuseWhatIsNoneAndChangeNothingThen)
{
    const Json before = Answer({"settings"});
    for (const char* wrong :
         {"mode", "mode=7", "mode=", "Mode=6", "label1=12345678901234567890123456789012x",
          "edit-check-types=0,,1", "edit-check-types=3",
          "edit-check-types=", "sort-order=descending", "reading-limit=0", "reading-limit=1025",
          "reading-limit=9x", "picture-memory=63", "item:工種=hide"}) {
        const ProgramResult result = Run({"settings", "--set", "tree=work", "--set", wrong});
        EXPECT_EQ(result.status, 2) << wrong;
        EXPECT_NE(result.errors, "") << wrong;
    }
    EXPECT_EQ(Run({"settings", delivery, "--set", "item:項目=hide"}).status, 2);
    EXPECT_EQ(Answer({"settings"}), before);
}

TEST_F(Settings, AreWrittenByTheirOwnCommandAlone)
{
    const CString profile = temp.Path("profile.ini");
    const auto run = [&](std::vector<CString> arguments) {
        arguments.insert(arguments.end(), {"--profile", profile});
        EXPECT_EQ(Run(arguments).status, 0);
        return temp.Read("profile.ini");
    };
    const CString other = temp.Path("other");
    DeliveryBuilder({.section = "農水省-23", .photos = 2, .images = false}).Write(other);
    const CString before = run({"settings", delivery, "--set", "item:撮影箇所=hide"});
    EXPECT_THAT(before, HasSubstr("撮影箇所"));
    EXPECT_EQ(run({"info", other}), before);
    EXPECT_EQ(run({"select", other, "--sort", "撮影年月日", "--descending"}), before);
    EXPECT_EQ(run({"settings", other}), before);
    EXPECT_EQ(run({"verify", other, "--types", "2"}), before);
    EXPECT_THAT(Answer({"settings", delivery, "--profile", profile}).dump(),
                HasSubstr(R"({"item":"撮影箇所","kind":"delivery","shown":false})"));
}

TEST_F(Settings, SurviveADamagedFileAndTellOfOneThatCannotBeWritten)
{
    temp.Write("profile.ini", CString("\xff\xfe\x00garbage", 10));
    const ProgramResult damaged = Run({"settings", "--profile", temp.Path("profile.ini")});
    EXPECT_EQ(damaged.status, 0);
    EXPECT_THAT(damaged.errors, HasSubstr("profile.ini.damaged"));
    const ProgramResult refused =
        Run({"settings", "--set", "mode=6", "--profile", "/proc/profile.ini"});
    EXPECT_EQ(refused.status, 1);
    EXPECT_THAT(refused.errors, HasSubstr("書き込めません"));
    EXPECT_EQ(Run({"pairs", delivery, "--profile", "/proc/profile.ini"}).status, 0);
}
} // namespace
