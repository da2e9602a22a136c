#include "platform/host/HostServices.h"
#include "platform/text/Cp932.h"
#include "sample/DeliveryBuilder.h"
#include "support/RunProgram.h"
#include "support/TempFolder.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <sys/stat.h>

namespace
{
using Json = nlohmann::json;
using testing::HasSubstr;

/// An inspection of six photographs from scripts, with the record beside the delivery.
class Inspection : public testing::Test
{
protected:
    Inspection()
    {
        DeliveryBuilder builder({.photos = 6, .drawings = 0, .images = false});
        for (int i = 0; i < 6; ++i) {
            builder.Set(i, "工種", i < 3 ? "舗装工" : "擁壁工")
                .Set(i, "種別", "")
                .Set(i, "細別", "");
            builder.Set(i, "シリアル番号", std::to_string(10 - i))
                .Set(i, "代表写真", i % 2 == 0 ? "1" : "0");
            builder.Set(i, "撮影箇所", i == 5 ? "" : "No.1");
            builder.Set(i, "撮影年月日", "2024-03-0" + std::to_string(i + 1));
        }
        builder.Write(temp.Path("d"));
    }

    ProgramResult Run(std::vector<CString> arguments) const
    {
        arguments.insert(arguments.begin() + 1, delivery);
        arguments.insert(arguments.begin(), "tovi");
        return RunProgram(arguments, temp.Path("config"));
    }

    /// The current array that select makes under these options.
    CString Selected(std::vector<CString> options) const
    {
        options.insert(options.begin(), "select");
        const ProgramResult result = Run(options);
        return result.status == 0 ? Json::parse(result.output)["current"].dump() : result.errors;
    }

    CString Recorded() const { return Json::parse(Run({"record", record}).output).dump(); }

    TempFolder temp;
    CString delivery = temp.Path("d");
    CString record = temp.Path("記録.xml");
};

TEST_F(Inspection, GoesFromLabelsToARecordAndBack)
{
    EXPECT_EQ(Run({"label", "--record", record, "--at", "0,2", "--paste", "0"}).status, 0);
    EXPECT_EQ(Run({"label", "--record", record, "--at", "2-3", "--paste", "1", "--comment",
                   "舗装厚を<確認>①𠮷"})
                  .status,
              0);
    EXPECT_EQ(
        Run({"correct", "--record", record, "--type", "2", "--node", "舗装工", "--action", "ok"})
            .status,
        0);
    EXPECT_EQ(Recorded(),
              R"([{"comment":"","index":0,"labels":[0]},{"comment":"","index":1,"labels":[0]},)"
              R"({"comment":"舗装厚を<確認>①𠮷","index":2,"labels":[1,4]},)"
              R"({"comment":"舗装厚を<確認>①𠮷","index":3,"labels":[1,4]},)"
              R"({"comment":"","index":4,"labels":[]},{"comment":"","index":5,"labels":[]}])");
    const Json photos = Json::parse(Run({"photos", "--record", record}).output);
    EXPECT_EQ(photos[3]["labels"], Json::parse("[1,4]"));

    const CString paths = temp.Path("paths.xml");
    EXPECT_EQ(Run({"return", "--record", record, paths}).status, 0);
    EXPECT_THAT(*Cp932::Decode(temp.Read("paths.xml")),
                HasSubstr("<写真ファイルパス>" + delivery + "/PHOTO/PIC/"));

    EXPECT_EQ(
        Run({"label", "--record", record, "--at", "3", "--remove", "4", "--remove", "1"}).status,
        0);
    EXPECT_EQ(Run({"label", "--record", record, "--at", "2", "--clear", "--paste", "5"}).status, 0);
    EXPECT_EQ(Run({"correct", "--record", record, "--action", "unchecked"}).status, 0);
    const Json left = Json::parse(Run({"record", record}).output);
    EXPECT_EQ(left[2]["labels"].dump() + left[2]["comment"].dump(), "[5]\"\"");
    EXPECT_EQ(left[0]["labels"].dump() + left[3]["labels"].dump(), "[][]");
}

TEST_F(Inspection, NarrowsAndOrders)
{
    Run({"label", "--record", record, "--at", "1", "--paste", "2"});
    Run({"label", "--record", record, "--at", "4", "--paste", "0"});
    const std::pair<std::vector<CString>, const char*> cases[] = {
        {{"--type", "2"}, "[0,1,2,3,4,5]"},
        {{"--type", "2", "--node", "擁壁工"}, "[3,4,5]"},
        {{"--type", "2", "--sort", "シリアル番号"}, "[5,4,3,2,1,0]"},
        {{"--type", "2", "--sort", "撮影年月日", "--descending"}, "[5,4,3,2,1,0]"},
        {{"--type", "2", "--key-photo"}, "[0,2,4]"},
        {{"--type", "2", "--node", "擁壁工", "--key-photo"}, "[4]"},
        {{"--type", "2", "--record", record, "--ng"}, "[1]"},
        {{"--type", "2", "--record", record, "--unchecked", "--key-photo"}, "[0,2]"},
        {{"--type", "2", "--record", record, "--or", "--ng", "--key-photo"}, "[0,1,2,4]"},
        {{"--record", record, "--label", "0"}, "[4]"},
        {{"--type", "2", "--item", "工種=舗装工", "--item", "代表写真=0"}, "[1]"},
        {{"--type", "2", "--item", "撮影箇所=【未記入】"}, "[5]"},
        {{"--type", "2", "--date-from", "2024-03-02", "--date-to", "2024-03-04"}, "[1,2,3]"},
        {{"--type", "2", "--date-from", "1999-01-01", "--date-to", "2999-01-01", "--file-date"},
         "[]"},
        {{"--type", "2", "--no-exif", "--sort", "シリアル番号"}, "[5,4,3,2,1,0]"},
        {{"--missing-required"}, "[]"},
        {{"--type", "2", "--record", record, "--key-photo", "--text", "ホソウコウ"}, "[]"},
        {{"--type", "2", "--key-photo", "--text", "ｐ0000003　擁壁"}, "[]"},
    };
    for (const auto& [options, current] : cases)
        EXPECT_EQ(Selected(options), current) << testing::PrintToString(options);
}

TEST_F(Inspection, SaysWhatIsWrong)
{
    Run({"label", "--record", record, "--at", "0", "--paste", "0"});
    temp.Write("other.xml",
               "<検査状況><情報><写真枚数>7</写真枚数></情報><状況><写真/></状況></検査状況>");
    const CString locked = temp.Write("locked.xml", temp.Read("記録.xml"));
    chmod(locked.c_str(), 0444);
    const CString foreign =
        temp.Write("foreign.xml", ReplaceAll(temp.Read("記録.xml"), "names=\"", "names=\"0"));
    const std::tuple<std::vector<CString>, int, const char*> cases[] = {
        {{"record", temp.Path("missing.xml")}, 1, "がありません"},
        {{"record", temp.Path("other.xml")}, 1, "写真の枚数がこの納品データ（6枚）と違います"},
        {{"label", "--record", locked, "--at", "0", "--paste", "1"}, 1, "読み取り専用"},
        {{"label", "--record", foreign, "--at", "0", "--paste", "1"}, 1, "シリアル番号が違います"},
        {{"select", "--record", foreign}, 1, "--force"},
        {{"record", foreign, "--force"}, 0, ""},
        {{"label", "--record", temp.Path("none/r.xml"), "--at", "0", "--paste", "1"},
         1,
         "フォルダがありません"},
        {{"label", "--record", delivery + "/PHOTO/r.xml", "--at", "0", "--paste", "1"},
         2,
         "納品データのフォルダ"},
        {{"label", "--record", record, "--at", "6", "--paste", "1"}, 2, "0から5まで"},
        {{"label", "--record", record, "--at", "2-", "--paste", "1"}, 2, "0,3,5-9"},
        {{"label", "--record", record, "--paste", "1"}, 2, "--at か --node"},
        {{"label", "--record", record, "--at", "1", "--paste", "4"}, 2, "コメントのない写真"},
        {{"select", "--item", "工種"}, 2, "項目名=値"},
        {{"select", "--item", "a=1", "--item", "b=1", "--item", "c=1", "--item", "d=1"},
         2,
         "3つまで"},
        {{"select", "--date-from", "2024/03/01", "--date-to", "2024-03-02"}, 2, "2024-03-31 の形"},
        {{"select", "--date-from", "2024-03-01"}, 2, "両方"},
        {{"select", "--label", "0", "--ng"}, 2, "--label"},
        {{"select", "--or"}, 2, "抽出条件と一緒"},
        {{"select", "--text", "　"}, 2, "--text には"},
        {{"select", "--descending"}, 2, "--sort"},
        {{"select", "--file-date", "--ng"}, 2, "--date-from"},
    };
    const CString before = temp.Read("記録.xml");
    for (const auto& [arguments, status, sentence] : cases) {
        const ProgramResult result = Run(arguments);
        EXPECT_EQ(result.status, status) << testing::PrintToString(arguments) << result.errors;
        EXPECT_THAT(result.errors, HasSubstr(sentence)) << testing::PrintToString(arguments);
    }
    EXPECT_EQ(temp.Read("記録.xml"), before);
    EXPECT_EQ(temp.Read("locked.xml"), before);
}

TEST_F(Inspection, KeepsTheLabelsOfSeveralProgramsAtOnce)
{
    DeliveryBuilder({.photos = 40, .drawings = 0, .images = false}).Write(temp.Path("forty"));
    delivery = temp.Path("forty");
    temp.MakeFolder("records");
    std::filesystem::create_symlink("記録.xml", temp.Path("records/link.xml"));
    record = temp.Path("records/記録.xml");
    // Each by another way to the same record, which isn't there yet.
    temp.Write("work", R"(cd "$1/records" || exit
        for way in 記録.xml ../records/記録.xml "$1/records/記録.xml" link.xml; do
            first=$((program++ * 10))
            for photo in $(seq $first $((first + 9))); do
                "$2" label "$1/forty" --record "$way" --at $photo --paste 1 >"$1/out.$photo" ||
                    echo "$photo failed"
            done &
        done
        wait)");
    const CString program = RunningProgramPath();
    const CString tovi = program.substr(0, program.rfind('/') + 1) + "tovi";
    const ProgramResult result =
        RunProgram({"/bin/bash", temp.Path("work"), temp.Path(), tovi}, temp.Path("config"));
    EXPECT_EQ(result.output + result.errors, "");
    int labels = 0;
    for (const Json& photo : Json::parse(Run({"record", record}).output)) {
        labels += static_cast<int>(photo["labels"].size());
    }
    EXPECT_EQ(labels, 40);
    EXPECT_TRUE(std::filesystem::is_symlink(temp.Path("records/link.xml")));
    const std::filesystem::directory_iterator left(temp.Path("records"));
    EXPECT_EQ(std::distance(begin(left), end(left)), 2) << "no lock file";
}
} // namespace
