#include "platform/files/MibFile.h"
#include "platform/host/HostServices.h"
#include "platform/pictures/LumImage.h"
#include "sample/DeliveryBuilder.h"
#include "support/FileTree.h"
#include "support/RunProgram.h"
#include "support/TempFolder.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <sys/stat.h>

#include <map>
#include <sstream>

namespace
{
using Json = nlohmann::json;
using testing::HasSubstr;
using testing::MatchesRegex;

class Headless : public testing::Test
{
protected:
    ProgramResult Run(std::vector<CString> arguments) const
    {
        return RunProgram(arguments, temp.Path("config"));
    }

    /// Makes a sample delivery with tovi-sample and returns its folder.
    CString Sample(std::vector<CString> options) const
    {
        const CString folder = temp.Path("sample");
        std::filesystem::remove_all(folder);
        options.insert(options.begin(), {"tovi-sample", folder});
        const ProgramResult made = Run(options);
        EXPECT_EQ(made.status, 0) << made.errors;
        return folder;
    }

    TempFolder temp;
};

TEST_F(Headless, ShowsADeliveryWithoutTouchingIt)
{
    const CString folder = Sample({"--photos", "9", "--drawings", "3"});
    const auto before = ReadFileTree(folder);

    const Json info = Json::parse(Run({"tovi", "info", folder}).output);
    EXPECT_EQ(info["family"], "mlit");
    EXPECT_EQ(info["section"], "国交省-20");
    EXPECT_EQ(info["errorType"], 4);
    EXPECT_EQ(info["hasKeyPhoto"], true);
    EXPECT_EQ(info["photoCount"], 9);
    EXPECT_EQ(info["rootPath"], folder + "/PHOTO/");

    const Json photos = Json::parse(Run({"tovi", "photos", folder, "--facts"}).output);
    const auto expected = DeliveryBuilder({.photos = 9, .drawings = 3}).ExpectedItems();
    ASSERT_EQ(photos.size(), expected.size());
    for (const Json& photo : photos) {
        std::vector<SampleItem> items;
        for (const Json& item : photo["items"]) items.push_back({item["title"], item["value"]});
        EXPECT_EQ(items, expected[photo["index"]]);
        EXPECT_EQ(photo["fileExists"], true) << photo;
        EXPECT_GT(photo["width"].get<int>() * photo["height"].get<int>(), 1'000'000) << photo;
    }

    const Json tree = Json::parse(Run({"tovi", "tree", folder, "--type", "2"}).output);
    ASSERT_FALSE(tree["children"].empty());
    const CString first = tree["children"][0]["title"];
    const Json selected =
        Json::parse(Run({"tovi", "select", folder, "--type", "2", "--node", first}).output);
    EXPECT_EQ(selected["path"], folder + "/PHOTO/PHOTO.XML/" + first + "/");
    ASSERT_FALSE(selected["current"].empty());
    EXPECT_EQ(selected["selectedPhoto"], selected["current"][0]);

    const ProgramResult sheet =
        Run({"tovi", "sheet", folder, temp.Path("sheet.png"), "--columns", "3"});
    EXPECT_EQ(sheet.status, 0) << sheet.errors;
    int width = 0;
    int height = 0;
    EXPECT_TRUE(LumImage::GetCommentImageSize(temp.Path("sheet.png").c_str(), width, height));
    EXPECT_GT(width, 600);
    EXPECT_EQ(sheet.errors, "");
    const CString folderOfPrograms =
        RunningProgramPath().substr(0, RunningProgramPath().rfind('/') + 1);
    const CString noFonts = temp.Write("fonts.conf", "<fontconfig/>");
    EXPECT_THAT(Run({"/usr/bin/env", "FONTCONFIG_FILE=" + noFonts, folderOfPrograms + "tovi",
                     "sheet", folder, temp.Path("boxes.png")})
                    .errors,
                HasSubstr("日本語のフォントがない"));
    EXPECT_EQ(Run({"tovi", "sheet", folder, folder + "/PHOTO/PIC/sheet.png"}).status, 2);
    EXPECT_EQ(ReadFileTree(folder), before);
}

TEST_F(Headless, SaysWhatIsWrongAndWhatToDo)
{
    const CString good = Sample({"--photos", "2", "--no-images"});
    const CString cut = temp.MakeFolder("cut");
    const CString photoXml = temp.Read("sample/PHOTO/PHOTO.XML");
    temp.Write("cut/PHOTO.XML", photoXml.substr(0, photoXml.size() - 30));
    temp.Write("empty/PHOTO.XML", "");
    temp.Write("none/PHOTO.XML",
               "<!DOCTYPE photodata SYSTEM \"PHOTO05.DTD\">\n<photodata><基礎情報/></photodata>");
    temp.Write("file", "");
    for (const char* name : {"two/b/PHOTO/PHOTO.XML", "two/a/PHOTO/PHOTO.XML"})
        temp.Write(name, "");
    const std::tuple<std::vector<CString>, int, const char*, const char*> cases[] = {
        {{"photos", temp.Path("missing")}, 1, "[]\n", "というフォルダがありません。"},
        {{"photos", temp.Path("file")}, 1, "[]\n", "からは納品データを開けません。"},
        {{"photos", temp.MakeFolder("bare")}, 1, "[]\n", "PHOTO.XML が見つかりません。"},
        {{"info", temp.Path("two")}, 1, "null", "納品データが2つあります（a、b）。"},
        {{"combine", good, "--next", temp.Path("two")}, 1, "", "納品データが2つあります（a、b）。"},
        {{"info", good + "/INDEX_C.XML"}, 0, "\"photoCount\":2", ""},
        {{"photos", cut}, 1, "[]\n", "読み込めません（"},
        {{"photos", temp.Path("empty")}, 1, "[]\n", "対応していない要領のDTD"},
        {{"photos", good, "--family", "nexco"}, 1, "[]\n", "対応していない要領のDTD"},
        {{"info", cut}, 1, "\"errorType\":null", "読み込めません（"},
        {{"info", temp.Path("none")}, 1, "\"errorType\":2", "写真情報がありません。"},
        {{"select", good, "--node", "ない"}, 2, "", "分類「ない」がありません。"},
        {{"sheet", good, "/missing/sheet.png"}, 1, "", "/missing/ というフォルダがありません。"},
        {{"photos"}, 2, "", "使い方が正しくありません"},
        {{"tree", good, "--type", "3"}, 2, "", "使い方が正しくありません"},
        {{"photo", good}, 2, "", "コマンド「photo」はありません。photos のことですか。"},
        {{"photos", good, "--fact"}, 2, "", "--fact は余分です。--facts のことですか。"},
        {{"label", good}, 2, "", "--record を指定してください。"},
        {{"label", good, "--record", "r", "--paste", "6"}, 2, "", "--paste は、0から5までの数"},
        {{"correct", good, "--record", "r", "--action", "x"}, 2, "", "--action は、ok、unchecked"},
        {{"select", good, "--and", "--or"}, 2, "", "--and と --or は一緒に指定できません。"},
        {{"select", good, "--sort", "撮影日"}, 2, "", "「撮影日」はこの納品データにありません。"},
        {{"export", good, temp.Path(), "--item", "工手=a"}, 2, "", "工種 のことですか。"},
        {{"sheet", good, temp.Path("s.png")}, 1, "", "2枚の写真を表示できません。"},
        {{}, 2, "", "使い方: tovi"},
        {{"--version"}, 0, "tovi 0.", ""},
        {{"select", "--help"}, 0, "--node", ""},
        {{"--help"}, 0, "sheet", ""},
    };
    for (const auto& [command, status, output, sentence] : cases) {
        std::vector<CString> arguments{"tovi"};
        arguments.insert(arguments.end(), command.begin(), command.end());
        const ProgramResult result = Run(arguments);
        const CString line = testing::PrintToString(arguments);
        EXPECT_EQ(result.status, status) << line << result.errors;
        EXPECT_THAT(result.output, HasSubstr(output)) << line;
        EXPECT_THAT(result.errors, HasSubstr(sentence)) << line;
    }
}

TEST_F(Headless, TakesTheCommonOptionsOnEveryCommand)
{
    std::istringstream help(Run({"tovi", "--help"}).output);
    std::string line;
    while (std::getline(help, line) && line != "コマンド:") continue;
    int commands = 0;
    for (std::string name; std::getline(help, line) && std::istringstream(line) >> name;) {
        EXPECT_THAT(Run({"tovi", name, "--help"}).output, HasSubstr("--profile FILE ")) << name;
        ++commands;
    }
    EXPECT_GT(commands, 1);
}

TEST_F(Headless, TellsWhatDoesNotStandWhereItShould)
{
    DeliveryBuilder({.photos = 3, .drawings = 0, .images = false})
        .AddXml(1, "<写真情報><工種>x</工種></写真情報>")
        .Write(temp.Path("d"));
    const ProgramResult told = Run({"tovi", "info", temp.Path("d")});
    EXPECT_EQ(told.status, 0);
    EXPECT_THAT(told.errors, HasSubstr("写真情報が4件ありますが、読み込めた写真は3枚です"));
    const Json info = Json::parse(told.output);
    EXPECT_EQ(info["photoCount"], 3);
    EXPECT_EQ(info["photoElements"], 4);
    EXPECT_EQ(info["adoptedValues"], 1);
    EXPECT_FALSE(Json::parse(Run({"tovi", "info", Sample({"--no-images"})}).output)
                     .contains("adoptedValues"));
}

TEST_F(Headless, GivesTheTerminalNoOrders)
{
    const CString steering = "\x1b]0;a\a\n\xC2\x9B\u202E";
    for (const std::vector<CString>& wrong :
         {std::vector<CString>{"tovi", "info", temp.Path(steering)},
          {"tovi", "info", "d", steering}}) {
        const ProgramResult told = Run(wrong);
        EXPECT_NE(told.status, 0);
        EXPECT_EQ(told.errors.find_first_of(steering.substr(0, 1)), CString::npos);
        EXPECT_EQ(told.errors.find('\n'), told.errors.size() - 1);
        EXPECT_EQ(told.errors.find("\xC2\x9B"), CString::npos);
        EXPECT_EQ(told.errors.find("\u202E"), CString::npos);
    }
    DeliveryBuilder({.photos = 1, .drawings = 0, .encoding = SampleEncoding::Utf8, .images = false})
        .Set(0, "写真タイトル", "x\u202E\x7f")
        .Write(temp.Path("d"));
    EXPECT_THAT(Run({"tovi", "photos", temp.Path("d")}).output, HasSubstr("x\\u202e\\u007f"));
}

TEST_F(Headless, ViewerAnswersWithoutADisplay)
{
    const std::tuple<const char*, int, const char*, const char*> cases[] = {
        {"--help", 0, "使い方: tovi-viewer", ""},
        {"-platform offscreen --version", 0, "tovi-viewer 0.", ""},
        {"--unknown", 2, "", "オプション unknown はありません。"},
        {"--record", 2, "", "値がない"},
        {"--family x", 2, "", "--family は"},
        {"a b", 2, "", "フォルダは1つだけ"},
        {"--help >/dev/full", 1, "", "標準出力"},
    };
    const CString program = RunningProgramPath();
    const CString viewer = program.substr(0, program.rfind('/')) + "/tovi-viewer";
    for (const auto& [arguments, status, output, sentence] : cases) {
        const ProgramResult result =
            Run({"/bin/sh", "-c",
                 "unset DISPLAY WAYLAND_DISPLAY QT_QPA_PLATFORM; '" + viewer + "' " + arguments});
        EXPECT_EQ(result.status, status) << arguments << result.errors;
        EXPECT_THAT(result.output, HasSubstr(output)) << arguments;
        EXPECT_THAT(result.errors, HasSubstr(sentence)) << arguments;
    }
}

TEST_F(Headless, PreparesTheIndexInTheWorkFolder)
{
    temp.Write("config/tovi/registry.ini",
               "[SOFTWARE\\Orvane Systems\\QVHomeKey]\nQVScratch=sz:" + temp.MakeFolder("work"));
    const CString folder = Sample({"--photos", "1", "--no-images"});
    const auto before = ReadFileTree(folder);
    const ProgramResult made = Run({"tovi", "index", folder});
    EXPECT_EQ(made.status, 0);
    EXPECT_EQ(made.errors, "");
    const CString copy = Json::parse(made.output)["path"];
    EXPECT_THAT(copy, MatchesRegex(temp.Path("work/QVScratch/QV-SUITE/IndexCopy/.*/INDEX_C.XML")));
    const CString copies =
        copy.substr(temp.Path("").size(), copy.rfind('/') - temp.Path("").size());
    EXPECT_THAT(temp.Read(copies + "/INDE_C07.XSL"), HasSubstr("xsl:stylesheet"));
    const ProgramResult page = Run({"tovi", "index", folder, "--html"});
    EXPECT_EQ(Json::parse(page.output), Json({{"path", temp.Path(copies + "/INDEX_C.html")}}));
    EXPECT_THAT(temp.Read(copies + "/INDEX_C.html"),
                AllOf(HasSubstr("<html lang=\"ja\">"), HasSubstr("<h1>")));
    EXPECT_EQ(ReadFileTree(folder), before);

    temp.Write("sample/INDEX_C.XML", "<constdata/>");
    EXPECT_THAT(Run({"tovi", "index", folder}).errors, HasSubstr("DOCTYPEの行がありません"));
    std::filesystem::remove(folder + "/INDEX_C.XML");
    const ProgramResult missing = Run({"tovi", "index", folder, "--html"});
    EXPECT_EQ(missing.status, 1);
    EXPECT_THAT(missing.errors, HasSubstr("INDEX_*.XML"));
    temp.Write("sample/INDEX_C.XML", "<!DOCTYPE constdata SYSTEM \"INDE_C07.DTD\">\n");
    std::filesystem::remove_all(temp.Path("work/QVScratch"));
    temp.Write("work/QVScratch", "");
    EXPECT_THAT(Run({"tovi", "index", folder}).errors, HasSubstr("作業フォルダ"));
}
} // namespace
