#include "sample/DeliveryBuilder.h"
#include "support/FileTree.h"
#include "support/RunProgram.h"
#include "support/TempFolder.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

namespace
{
namespace fs = std::filesystem;
using Json = nlohmann::json;
using testing::HasSubstr;

class Discs : public testing::Test
{
protected:
    ProgramResult Run(std::vector<CString> arguments) const
    {
        return RunProgram(arguments, temp.Path("config"));
    }

    TempFolder temp;
    CString set = temp.Path("set");
};

TEST_F(Discs, AreGatheredAndExportedWithoutBeingTouched)
{
    ASSERT_EQ(Run({"tovi-sample", set, "--photos", "9", "--discs", "3"}).status, 0);
    const auto before = ReadFileTree(set);
    const CString photoXml = before.at(set + "/DISK1/PHOTO/PHOTO.XML").first;
    EXPECT_TRUE(photoXml == before.at(set + "/DISK3/PHOTO/PHOTO.XML").first);

    const ProgramResult all =
        Run({"tovi", "combine", set + "/DISK1", "--next", set + "/DISK2", set + "/DISK3"});
    EXPECT_EQ(all.status, 0) << all.errors;
    EXPECT_EQ(all.errors, "");
    EXPECT_EQ(Json::parse(all.output)["found"], 9);

    const ProgramResult two = Run({"tovi", "combine", set, "--next", set + "/DISK2/PHOTO"});
    EXPECT_EQ(two.status, 1);
    EXPECT_EQ(Json::parse(two.output)["found"], 6);
    EXPECT_GE(Json::parse(two.output)["missing"].size(), 3u);
    const CString out = temp.MakeFolder("保存 先");
    const ProgramResult saved = Run({"tovi", "export", set + "/DISK1", out});
    EXPECT_EQ(saved.status, 1) << "two discs are missing";
    const Json counts = Json::parse(saved.output);
    EXPECT_EQ(counts["photos"], 9);
    EXPECT_EQ(counts["copied"], 3);
    EXPECT_EQ(counts["missing"].size(), 6u);
    std::uintmax_t bytes = 0;
    for (const auto& [path, file] : ReadFileTree(out)) {
        const CString source = set + "/DISK1/PHOTO/PIC" + path.substr(path.rfind('/'));
        EXPECT_TRUE(file == before.at(source)) << path;
        bytes += file.first.size();
    }
    EXPECT_EQ(counts["bytes"], bytes);

    const std::tuple<CString, int, const char*> refused[] = {
        {out, 1, "がもうあります。"},
        {set + "/DISK1", 2, "納品データのフォルダには書き込みません。"},
        {set + "/DISK1/PHOTO/PIC/", 2, "納品データのフォルダには書き込みません。"},
    };
    for (const auto& [folder, status, sentence] : refused) {
        const ProgramResult result = Run({"tovi", "export", set + "/DISK1/PHOTO", folder});
        EXPECT_EQ(result.status, status) << folder;
        EXPECT_THAT(result.errors, HasSubstr(sentence));
    }
    EXPECT_TRUE(ReadFileTree(set) == before);
}
} // namespace
