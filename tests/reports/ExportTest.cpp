#include "photos/ToviPhoto.h"
#include "platform/files/MibFile.h"
#include "reports/CorrectionSave.h"
#include "reports/OutputPhotoFolder.h"
#include "reports/PhotoOutput.h"
#include "review/SlideMode.h"
#include "support/DiskMount.h"
#include "support/OpenedSample.h"
#include "support/Texts.h"

#include <gmock/gmock.h>

namespace
{
namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::StartsWith;

constexpr const char* done = "保存に成功しました。";
constexpr const char* inDelivery =
    "納品データのフォルダには保存できません。\n別のフォルダを指定してください。";
constexpr const char* conflict =
    "指定フォルダには出力ファイルと同名のファイルが存在します。\n別のフォ"
    "ルダを指定してください。";

CString Summary(int count, int copied)
{
    return Format(
        "処理を完了しました。\n\n対象枚数   ： %d枚\nコピー枚数： %d枚\n失敗枚数   ： %d枚", count,
        copied, count - copied);
}

/// A delivery whose photographs have these file names, all of them on show.
struct Shown : OpenedSample
{
    explicit Shown(const std::vector<CString>& names, bool files = true)
        : OpenedSample(Builder(names))
    {
        for (const CString& name : names) {
            const bool isPlain = !name.empty() && name.find('/') == CString::npos && name != "..";
            if (files && isPlain) temp.Write("PHOTO/PIC/" + name, "bytes of " + name);
        }
        document->SetSelected(document.get(), true);
        SetOutputPhotoFolderPath("");
    }

    static DeliveryBuilder Builder(const std::vector<CString>& names)
    {
        DeliveryBuilder builder(
            {.photos = static_cast<int>(names.size()), .drawings = 0, .images = false});
        for (int i = 0; i < static_cast<int>(names.size()); ++i) {
            builder.Set(i, "写真ファイル名", names[static_cast<std::size_t>(i)]);
        }
        return builder;
    }

    /// Has the user choose \p folders one after the other, and returns what he was told.
    std::vector<CString> Output(std::initializer_list<CString> folders)
    {
        services.user.folders.assign(folders.begin(), folders.end());
        OutputShownPhotos(*document);
        return Texts(services.user.Messages());
    }

    /// The names in \p folder, a blank behind each.
    static CString NamesIn(const CString& folder)
    {
        CString names;
        for (const CString& path : MibFileFind(folder, "*")) names += MibGetFileName(path) + " ";
        return names;
    }

    TempFolder out;
};

TEST(OutputAll, CopiesByteForByteAndRemembersTheFolder)
{
    Shown shown({"A.JPG", "B.JPG", "C.SVG"});
    fs::permissions(shown.temp.Path("PHOTO/PIC/B.JPG"), fs::perms::owner_read);
    EXPECT_THAT(shown.Output({shown.out.Path()}), ElementsAre(Summary(3, 3)));
    for (const char* name : {"A.JPG", "B.JPG", "C.SVG"}) {
        const CString source = CString("PHOTO/PIC/") + name;
        EXPECT_EQ(shown.out.Read(name), shown.temp.Read(source));
        EXPECT_EQ(fs::last_write_time(shown.out.Path(name)),
                  fs::last_write_time(shown.temp.Path(source)));
    }
    EXPECT_TRUE(MibIsReadOnly(shown.out.Path("B.JPG")));
    EXPECT_EQ(GetOutputPhotoFolder(), shown.out.Path());
}

TEST(OutputAll, AsksAgainForAFolderThatItMustNotUse)
{
    Shown shown({"A.JPG", "B.JPG", "C.JPG"});
    shown.out.Write("full/c.jpg", "old");
    const CString free = shown.out.MakeFolder("free");
    EXPECT_THAT(shown.Output({shown.temp.Path("PHOTO/PIC"), shown.temp.Path("PHOTO"),
                              shown.temp.Path(), shown.out.Path("full"), free}),
                ElementsAre(inDelivery, inDelivery, inDelivery, conflict, Summary(3, 3)));
    EXPECT_EQ(Shown::NamesIn(shown.out.Path("full")), "c.jpg ");
    EXPECT_EQ(shown.services.user.calls[2].text, shown.temp.Path("PHOTO/PIC"))
        << "the chooser starts at the folder that was chosen";

    Shown empty({"A.JPG", "B.JPG"});
    empty.document->SetCurPhotoArray(false, false);
    EXPECT_THAT(empty.Output({empty.out.Path()}), ElementsAre(Summary(0, 0)));
}

TEST(OutputAll, ReplacesNamesInTheWholePath)
{
    const struct
    {
        std::vector<CString> names;
        const char* folder;
        const char* also;
        int copied;
        /// What is in the folders at the end.
        const char* inFolder;
        const char* inAlso;
    } cases[] = {
        // The look for conflicts ends with the last name in the path, which the first replaces.
        {{"A.JPG", "B.JPG"}, "of A.JPG", "of B.JPG", 2, "A.JPG ", "B.JPG "},
        {{"A.JPG", "B.JPG"}, "of B.JPG", "of A.JPG", 2, "B.JPG ", "A.JPG "},
        {{"A.JPG", "B.JPG", "B.JPG"}, "plain", "x", 3, "A.JPG B.JPG ", ""},
        {{"A.JPG", "out", "B.JPG"}, "out", "x", 1, "out ", ""},
        {{"A.JPG", "../x/E.JPG", "..", "B.JPG"}, "plain", "x", 2, "A.JPG B.JPG ", ""},
        // A name with a separator would make another folder of the path.
        {{"A.JPG", "/", "N.JPG"}, "plain", "x", 2, "A.JPG N.JPG ", ""},
        {{"/", "A.JPG"}, "plain", "x", 1, "A.JPG ", ""},
    };
    for (const auto& c : cases) {
        Shown shown(c.names);
        const CString folder = shown.out.MakeFolder(c.folder);
        const CString also = shown.out.MakeFolder(c.also);
        const int count = static_cast<int>(c.names.size());
        EXPECT_THAT(shown.Output({folder}), ElementsAre(Summary(count, c.copied))) << c.folder;
        EXPECT_EQ(Shown::NamesIn(folder), c.inFolder) << c.folder;
        EXPECT_EQ(Shown::NamesIn(also), c.inAlso) << c.folder;
    }
}

TEST(OutputAll, LeavesOutAPhotographWithoutAName)
{
    for (const std::vector<CString>& names : {std::vector<CString>{"", "A.JPG", "B.JPG"},
                                              {"A.JPG", "", "B.JPG"},
                                              {"A.JPG", "B.JPG", ""}}) {
        Shown shown(names);
        const auto nameless = std::find(names.begin(), names.end(), "") - names.begin();
        const CString told = shown.Output({shown.out.MakeFolder("plain")})[0];
        EXPECT_THAT(told, testing::StartsWith(Summary(3, 2)));
        EXPECT_THAT(told, testing::HasSubstr(Format("、%d枚目）", static_cast<int>(nameless) + 1)));
        EXPECT_EQ(Shown::NamesIn(shown.out.Path("plain")), "A.JPG B.JPG ");
    }
    Shown none({"", ""});
    EXPECT_THAT(none.Output({none.out.Path()})[0], testing::StartsWith(Summary(2, 0)));
    EXPECT_EQ(Shown::NamesIn(none.out.Path()), "");
}

TEST(OutputAll, OverwritesNothingWhereNobodyLooked)
{
    Shown shown({"A.JPG", "B.JPG"});
    shown.out.Write("of A.JPG/A.JPG", "old");
    EXPECT_THAT(shown.Output({shown.out.MakeFolder("of B.JPG")}), ElementsAre(Summary(2, 1)));
    EXPECT_EQ(shown.out.Read("of A.JPG/A.JPG"), "old");
}

TEST(OutputAll, KnowsTheDeliveryByEveryKindOfIndex)
{
    Shown shown({"A.JPG", "B.JPG"});
    TempFolder& temp = shown.temp;
    for (const auto& file : MibFileFind(temp.Path(), "INDEX_*.XML")) fs::remove(file);
    temp.Write("PHOTO_MINE.XML", "not an index");
    EXPECT_FALSE(IsDeliveryFolder(*shown.document, temp.Path()));
    temp.Write("PHOTO_JH.XML",
               "<?xml version=\"1.0\"?>\n<!DOCTYPE constdata SYSTEM \"PHOT_JH1.DTD\">\n");
    EXPECT_TRUE(IsDeliveryFolder(*shown.document, temp.Path()));
    // Read from elsewhere by now: the disc stays the delivery's.
    shown.document->RootPath(shown.out.Path().c_str());
    EXPECT_TRUE(IsDeliveryFolder(*shown.document, temp.Path()));
}

TEST(OutputAll, NamesCanNotLeadIntoTheDelivery)
{
    Shown shown({"out", "DRA", "N.JPG"});
    // The folder's last name is the first photograph's: the second makes it another folder.
    const CString drawings = shown.temp.MakeFolder("PHOTO/DRA");
    fs::create_directory_symlink(drawings, shown.out.Path("DRA"));
    EXPECT_THAT(shown.Output({shown.out.MakeFolder("out")}), ElementsAre(Summary(3, 1)));
    EXPECT_TRUE(fs::is_empty(drawings));
}

TEST(OutputAll, CountsWhatIsMissingAndStopsOnCancel)
{
    std::vector<CString> names;
    for (int i = 0; i < 300; ++i) names.push_back(Format("P%07d.JPG", i));
    Shown shown(names);
    fs::remove(shown.temp.Path("PHOTO/PIC/P0000007.JPG"));
    fs::remove(shown.temp.Path("PHOTO/PIC/P0000008.JPG"));
    const CString secret = shown.out.Write("secret", "outside");
    fs::create_symlink(secret, shown.temp.Path("PHOTO/PIC/P0000008.JPG"));
    const CString all = shown.out.MakeFolder("all");
    EXPECT_THAT(shown.Output({all}), ElementsAre(Summary(300, 298)));
    EXPECT_FALSE(fs::exists(all + "/P0000008.JPG")) << "a link out of the delivery is no source";

    shown.services.user.calls.clear();
    shown.services.user.cancelAtPumps = {shown.services.user.pumps + 20};
    const CString some = shown.out.MakeFolder("some");
    const CString told = shown.Output({some})[0];
    const CString copies = Shown::NamesIn(some);
    const auto copied = std::count(copies.begin(), copies.end(), ' ');
    EXPECT_GT(copied, 0);
    EXPECT_LT(copied, 290);
    EXPECT_EQ(told, Summary(300, static_cast<int>(copied)));
}

TEST(OutputAll, FullDiskFailsWhatHasNoRoom)
{
    Shown shown({"A.JPG", "B.JPG", "C.JPG"});
    shown.temp.Write("PHOTO/PIC/B.JPG", CString(std::size_t{2} << 20, 'x'));
    const DiskMount disk(shown.out.Path(), "tmpfs", "size=1m");
    if (!disk.IsThere()) GTEST_SKIP() << "only root may mount";
    EXPECT_THAT(shown.Output({shown.out.Path()}), ElementsAre(Summary(3, 2)));
    EXPECT_EQ(Shown::NamesIn(shown.out.Path()), "A.JPG C.JPG ");
}

TEST(OutputOne, AsksForTheName)
{
    for (const auto& [name, extension, pattern] : {std::tuple{"A.JPG", "JPG", "*.JPG"},
                                                   {"A.SVG", "SVG", "*.SVG"},
                                                   {"a.svg", "SVG", "*.SVG"}}) {
        Shown shown({name});
        auto& user = shown.services.user;
        user.saveFiles = {
            shown.out.Path("別名.x"), {}, shown.out.Path("none/x"), shown.temp.Path("PHOTO/x")};
        for (int run = 0; run < 4; ++run) OutputShownPhotos(*shown.document);
        EXPECT_EQ(shown.out.Read("別名.x"), CString("bytes of ") + name);
        EXPECT_EQ(user.saveQuestion.name, name);
        EXPECT_EQ(user.saveQuestion.extension, extension);
        EXPECT_EQ(user.saveQuestion.pattern, pattern);
        EXPECT_EQ(user.saveQuestion.folder, shown.out.Path("none")) << "failed or not";
        EXPECT_THAT(Texts(user.Messages()),
                    ElementsAre(done, StartsWith("保存に失敗しました。\n"), inDelivery));
        EXPECT_FALSE(fs::exists(shown.temp.Path("PHOTO/x")));
    }
    Shown hostile({"../x/A.JPG"});
    hostile.services.user.saveFiles = {CString()};
    OutputOnePhoto(*hostile.document);
    EXPECT_EQ(hostile.services.user.saveQuestion.name, "A.JPG");
    Shown empty({"A.JPG"});
    empty.document->SetCurPhotoArray(false, false);
    OutputOnePhoto(*empty.document);
    EXPECT_THAT(Texts(empty.services.user.Messages()),
                ElementsAre("出力可能な写真がありませんでした。"));
}

TEST(CorrectionSave, SavesTheDeliveredFileOrTheCorrectedPicture)
{
    const OpenedSample sample(DeliveryBuilder({.photos = 2, .drawings = 0}));
    const TempFolder out;
    auto& user = const_cast<ScriptedUserInterface&>(sample.services.user);
    ToviPhoto& photo = sample.Photo(0);
    const CString delivered = sample.temp.Read("PHOTO/PIC/" + MibGetFileName(photo.GetImagePath()));
    LumImage turned;
    ASSERT_TRUE(turned.Load(photo.GetImagePath()));
    turned.Rotate(90, 0, false, true);
    const struct
    {
        int rotation;
        int brightness;
        bool shown;
        /// The choice that is made; none when nobody is to be asked, -1 for a cancel.
        std::optional<int> choice;
        const char* saved;
    } cases[] = {
        {0, 0, true, {}, "delivered"}, {90, 0, false, {}, "delivered"},
        {90, 0, true, 0, "corrected"}, {0, -600, true, 0, "corrected"},
        {90, 0, true, 1, "delivered"}, {90, 0, true, -1, "nothing"},
    };
    for (const auto& c : cases) {
        user.calls.clear();
        user.saveFiles = {out.Path("saved.JPG")};
        user.options.clear();
        if (c.choice) user.options.push_back(*c.choice);
        CorrectionSave(*sample.document, CorrectionSave::Window::Image)
            .Run({&photo, c.rotation, c.brightness, c.shown});
        const bool asked = user.calls[0].kind == ScriptedUserInterface::CallKind::Choice;
        EXPECT_EQ(asked, c.choice.has_value());
        const CString bytes = out.Read("saved.JPG");
        LumImage saved;
        const CString what = bytes == delivered ? "delivered"
                             : bytes.empty()    ? "nothing"
                                                : "corrected";
        EXPECT_EQ(what, c.saved);
        if (what == "corrected") {
            EXPECT_TRUE(saved.Load(out.Path("saved.JPG").c_str()));
            const bool lies = c.rotation == 0;
            EXPECT_EQ(saved.GetWidth(), lies ? turned.GetHeight() : turned.GetWidth());
            CString original;
            CString model;
            EXPECT_TRUE(LumImage::GetComment(photo.GetImagePath(), LumCmntModel, original));
            EXPECT_TRUE(LumImage::GetComment(out.Path("saved.JPG").c_str(), LumCmntModel, model));
            EXPECT_EQ(model, original);
        }
        const CString name = MibGetFileName(photo.GetImagePath());
        EXPECT_EQ(user.saveQuestion.name,
                  what == "corrected" ? ReplaceAll(name, ".JPG", "_表示調整済み.JPG") : name);
        fs::remove(out.Path("saved.JPG"));
    }
    EXPECT_EQ(user.choice.options[0].explanation, "変更を反映した写真は原本ではありません。");
}

TEST(CorrectionSave, RefusesInSlideModeAndWithoutAPhotograph)
{
    Shown shown({"a.svg"});
    auto& user = shown.services.user;
    const CorrectionSave image(*shown.document, CorrectionSave::Window::Image);
    image.Run({});
    SetSlideMode(true);
    image.Run({&shown.Photo(0), 0, 0, false});
    OutputShownPhotos(*shown.document);
    SetSlideMode(false);
    EXPECT_THAT(Texts(user.Messages()), ElementsAre("保存可能な写真がありません。",
                                                    "スライドモード中は写真の保存ができません。",
                                                    "スライドモード中は写真の保存ができません。"));
    CorrectionSave(*shown.document, CorrectionSave::Window::Zoom)
        .Run({&shown.Photo(0), 0, 0, false});
    EXPECT_EQ(user.saveQuestion.extension, "SVG") << "here the path tells, in any letter case";
}
} // namespace
