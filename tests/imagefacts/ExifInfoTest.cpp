#include "imagefacts/FactsByTitle.h"
#include "imagefacts/ToviExifInfo.h"
#include "items/ToviTextPair.h"
#include "photos/ToviPhoto.h"
#include "platform/exif/PictureSize.h"
#include "platform/pictures/LumImage.h"
#include "sample/SampleExif.h"
#include "sample/SamplePictures.h"
#include "support/OpenedSample.h"
#include "work/Environment.h"
#include "work/WorkFolder.h"

#include <gmock/gmock.h>

#include <filesystem>

namespace
{
using namespace std::string_literals;

/// The rows of all groups in their order, as "title=value".
std::vector<CString> Rows(const ToviExifInfo& exif)
{
    std::vector<CString> rows;
    for (const ToviTextPairArray* group : {&exif.GetDate(), &exif.GetImage(), &exif.GetMaker(),
                                           &exif.GetFormat(), &exif.GetShoot(), &exif.GetGPS()}) {
        for (const ToviTextPair& pair : *group) {
            rows.push_back(pair.GetItem() + "=" + pair.GetValue());
        }
    }
    return rows;
}

CString ExifFact(const ToviPhoto& photo, const CString& title)
{
    CString value = "before";
    photo.GetExifInfoFromTitle(title, value);
    return value;
}

CString FileFact(const ToviPhoto& photo, const CString& title)
{
    CString value = "before";
    photo.GetFileInfoFromTitle(title, value);
    return value;
}

/// A machine of its own, and photographs without a delivery.
class ImageFacts : public testing::Test
{
protected:
    ImageFacts()
    {
        EnsureSampleGui();
        SetEnvironment({Registry(temp.Path("user.ini"), temp.Path("machine.ini")),
                        {"", temp.MakeFolder("documents"), "", temp.MakeFolder("temporary"),
                         temp.Path("cache")},
                        [](const CString&) { return DriveType::Fixed; }});
    }

    /// The bytes of a photograph taken at \p second of one minute.
    static std::string Picture(const CString& extension, int second = 0)
    {
        const std::chrono::sys_days day = std::chrono::year(2024) / 5 / 1;
        SampleScene scene{};
        scene.takenAt = day + std::chrono::seconds(second);
        return PhotoPicture(scene, extension);
    }

    static std::string WithoutExif()
    {
        const std::string jpeg = Picture(".JPG");
        const auto length =
            static_cast<unsigned char>(jpeg[4]) * 256u + static_cast<unsigned char>(jpeg[5]);
        return jpeg.substr(0, 2) + jpeg.substr(4 + length);
    }

    TempFolder temp;
};

TEST_F(ImageFacts, GroupsStandInTheirOrder)
{
    const SampleShot shot{.takenAt = std::chrono::sys_days(std::chrono::year(2024) / 5 / 1),
                          .maker = "KAEDE",
                          .model = "GENBA",
                          .width = 1600,
                          .height = 1200,
                          .shutter = 125,
                          .aperture = 40,
                          .exposureBias = -0.3,
                          .flash = true,
                          .position = GeoPosition{36.5, 140.25, 12.3}};
    const std::string jpeg = WithoutExif();
    const CString path = temp.Write("P1.JPG", WithExif(jpeg, shot));
    int width = 0;
    int height = 0;
    ASSERT_TRUE(LumImage::GetCommentImageSize(path.c_str(), width, height));
    ToviExifInfo exif;
    EXPECT_FALSE(exif.IsLoaded());
    exif.Load(path.c_str());
    EXPECT_TRUE(exif.IsLoaded());
    EXPECT_EQ(exif.GetPath(), path);
    const std::vector<CString> expected = {
        "ファイル変更日時=2024/05/01 00:00:00",
        "撮影日時=2024/05/01 00:00:00",
        "ディジタルデータの作成日時=2024/05/01 00:00:00",
        "大きさ=" + SizeText(width, height),
        "総画素数=" + TotalPixelsText(width, height),
        "画像入力機器のメーカー名=KAEDE",
        "画像入力機器のモデル名=GENBA",
        "使用ソフトウェア名=Ver.1.02",
        "作者名=(不明)",
        "撮影著作権者/編集著作権者=(不明)",
        "Exifバージョン=2.3",
        "露出時間=1/125 秒",
        "シャッタースピード=1/125 秒",
        "絞り値=F4",
        "露光補正値=-0.3 EV",
        "レンズ最小F値=F2.8",
        "測光方式=分割測光",
        "フラッシュ=発光、強制発光モード",
        "レンズの焦点距離=5 mm",
        "Fナンバー=F4",
        "緯度=北緯36度30分0秒",
        "経度=東経140度15分0秒",
        "高度=12.3 m",
    };
    EXPECT_EQ(Rows(exif), expected);
}

TEST_F(ImageFacts, PhotographsWithoutExifKnowNothing)
{
    for (const CString& path :
         {temp.Write("P1.JPG", WithoutExif()), temp.Write("P2.JPG", "text"), temp.Path("P3.JPG")}) {
        ToviPhoto photo(path.c_str());
        EXPECT_FALSE(photo.CheckExif()) << path;
        const std::vector<CString> rows = Rows(photo.GetExif());
        EXPECT_EQ(rows.size(), 23u);
        for (const CString& row : rows) EXPECT_TRUE(row.ends_with("=(不明)")) << row;
        EXPECT_EQ(ExifFact(photo, "撮影日時"), "");
    }
    ToviPhoto none;
    EXPECT_FALSE(none.CheckExif());
    EXPECT_FALSE(none.GetExif().IsLoaded());
}

TEST_F(ImageFacts, PresenceIsAskedOnce)
{
    const CString path = temp.Write("P1.JPG", Picture(".JPG"));
    ToviPhoto photo(path.c_str());
    EXPECT_EQ(ExifFact(photo, "撮影日時"), "") << "nothing is read unasked";
    EXPECT_TRUE(photo.CheckExif());
    photo.LoadExif();
    EXPECT_EQ(ExifFact(photo, "撮影日時"), "2024/05/01 00:00:00");
    const ToviPhoto before(photo);
    temp.Write("P1.JPG", WithoutExif());
    EXPECT_TRUE(photo.CheckExif());
    photo.LoadExif();
    EXPECT_EQ(ExifFact(photo, "撮影日時"), "2024/05/01 00:00:00");
    ToviPhoto copy(before);
    EXPECT_TRUE(copy.CheckExif()) << "the copy takes the answer over, but not the data";
    EXPECT_EQ(ExifFact(copy, "撮影日時"), "");
    copy.LoadExif();
    EXPECT_EQ(Rows(copy.GetExif())[1], "撮影日時=(不明)");
    std::filesystem::remove(path);
    EXPECT_EQ(ExifFact(photo, "撮影日時"), "");
}

TEST_F(ImageFacts, TitlesThatAreOfferedFindTheirRows)
{
    // The maker becomes the artist.
    std::string withArtist = Picture(".JPG");
    const std::size_t make = withArtist.find("\x0F\x01\x02\x00"s);
    ASSERT_NE(make, std::string::npos);
    withArtist.replace(make, 2, "\x3B\x01");
    ToviPhoto photo(temp.Write("P1.JPG", withArtist).c_str());
    photo.LoadExif();
    const ToviExifInfo& exif = photo.GetExif();
    EXPECT_NE(exif.GetMaker()[3].GetValue(), "(不明)");
    EXPECT_EQ(ExifFact(photo, "作成者"), exif.GetMaker()[3].GetValue());
    EXPECT_EQ(ExifFact(photo, "幅×高さ(Exif)"), exif.GetImage()[0].GetValue());
    EXPECT_EQ(ExifFact(photo, "総画素数(Exif)"), exif.GetImage()[1].GetValue());
    EXPECT_EQ(ExifFact(photo, "レンズ最少F値"), "F2.8");
    for (const char* title :
         {"作者名", "画像入力機器のメーカー名", "レンズ最小F値", "大きさ", "総画素数"}) {
        EXPECT_EQ(ExifFact(photo, title), "") << title;
    }
}

TEST_F(ImageFacts, SvgPhotographsAnswerFromTheirWorkFile)
{
    for (const char* folder : {"a", "b", "c"}) temp.MakeFolder(folder);
    ToviPhoto photo(temp.Write("a/P1.SVG", Picture(".SVG", 1)).c_str());
    ToviPhoto twin(temp.Write("b/P1.svg", Picture(".SVG", 2)).c_str());
    ToviPhoto broken(temp.Write("c/P1.SVG", "<svg/>").c_str());
    ToviPhoto unasked(temp.Write("a/P2.SVG", Picture(".SVG")).c_str());
    EXPECT_TRUE(photo.CheckExif());
    EXPECT_TRUE(twin.CheckExif());
    EXPECT_FALSE(broken.CheckExif());
    EXPECT_EQ(photo.GetExif().GetPath(), photo.GetExif().GetMainImagePath());
    EXPECT_THAT(photo.GetExif().GetPath(), testing::StartsWith(SuiteFolder()));
    EXPECT_EQ(ExifFact(photo, "撮影日時"), "2024/05/01 00:00:01");
    twin.LoadExif();
    EXPECT_EQ(ExifFact(twin, "撮影日時"), "2024/05/01 00:00:02");
    unasked.LoadExif();
    EXPECT_EQ(ExifFact(unasked, "撮影日時"), "2024/05/01 00:00:00");

    // Another photograph in its place, as from the next disc.
    ToviPhoto next(temp.Write("a/P1.SVG", Picture(".SVG", 3)).c_str());
    next.LoadExif();
    EXPECT_EQ(ExifFact(next, "撮影日時"), "2024/05/01 00:00:03")
        << "the work file is not that of the one before";
}

TEST_F(ImageFacts, FilesTellOfThemselves)
{
    const std::string jpeg = Picture(".JPG");
    const std::tuple<const char*, std::string, std::filesystem::perms, const char*, const char*>
        cases[] = {
            {"1023", std::string(1023, 'x'), std::filesystem::perms(0644), "0 KB", "No"},
            {"1024", std::string(1024, 'x'), std::filesystem::perms(0444), "1 KB", "Yes"},
            {".hidden", std::string(2047, 'x'), std::filesystem::perms(0444), "1 KB", "No"},
        };
    for (const auto& [name, bytes, permissions, size, readOnly] : cases) {
        const CString path = temp.Write(name, bytes);
        std::filesystem::permissions(path, permissions);
        const ToviPhoto photo(path.c_str());
        EXPECT_EQ(FileFact(photo, "ファイルサイズ"), size) << name;
        EXPECT_EQ(FileFact(photo, "読み取り専用"), readOnly) << name;
        EXPECT_EQ(FileFact(photo, "幅×高さ"), "");
        EXPECT_EQ(FileFact(photo, "作者名"), "");
    }

    const CString path = temp.Write("P1.JPG", jpeg);
    ToviPhoto photo(path.c_str());
    int width = 0;
    int height = 0;
    ASSERT_TRUE(photo.GetImageSize(width, height));
    EXPECT_EQ(FileFact(photo, "幅×高さ"), SizeText(width, height));
    EXPECT_EQ(FileFact(photo, "総画素数"), TotalPixelsText(width, height));
    const CString made = FileFact(photo, "作成日時");
    const std::chrono::hours day(24);
    std::filesystem::last_write_time(path, std::filesystem::last_write_time(path) - day);
    EXPECT_EQ(FileFact(photo, "作成日時"), made) << "the file was made when it was made";
    EXPECT_LT(FileFact(photo, "最終更新日時"), made);
}
} // namespace
