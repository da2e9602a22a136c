#include "support/OpenedSample.h"

#include "imagefacts/ToviExifInfo.h"
#include "items/ToviItemDef.h"
#include "items/ToviTextPair.h"
#include "photos/ToviPhoto.h"
#include "photos/ToviPhotoArray.h"
#include "platform/pictures/LumImage.h"
#include <gtest/gtest.h>

namespace
{
SampleOptions Plain(int photos)
{
    return {.photos = photos, .drawings = 0, .images = false};
}

CStringArray Pictures(ToviPhoto& photo)
{
    return photo.GetPicturePaths();
}

TEST(ToviPhoto, FindsValuesByDefinition)
{
    DeliveryBuilder builder(Plain(1));
    builder.Remove(0, "工種区分予備").Add(0, "工種区分予備", "一").Add(0, "工種区分予備", "二");
    builder.Set(0, "細別", "");
    const OpenedSample sample(builder);
    const ToviPhoto& photo = sample.Photo(0);
    const int notes = sample.DefIndex("工種区分予備");
    CStringArray values{"before"};
    photo.GetTitleFromIndex(notes, values);
    EXPECT_EQ(values, (CStringArray{"一", "二"}));
    EXPECT_STREQ(photo.GetTitle(notes), "一");
    EXPECT_STREQ(photo.GetTitle(999), "");
    photo.GetTitleFromIndex(CArray<int>{notes, 999, sample.DefIndex("細別")}, values);
    EXPECT_EQ(values, (CStringArray{"一", ""}));
}

TEST(ToviPhoto, MakesPathsThatStayInTheDelivery)
{
    const std::vector<std::pair<const char*, CString>> cases = {
        {"P0000001.JPG", "PIC/P0000001.JPG"},
        {"SUB\\P1.JPG", "PIC/SUB/P1.JPG"},
        {"", "PIC/"},
        {"..", "PIC/"},
        {"../../etc/passwd", "PIC/"},
        {"..\\..\\etc\\passwd", "PIC/"},
        {"a/../../b", "PIC/"},
        {"..a..b", "PIC/..a..b"},
        {"/etc/passwd", "PIC//etc/passwd"},
    };
    DeliveryBuilder builder(Plain(static_cast<int>(cases.size())));
    int next = 0;
    for (const auto& [value, path] : cases) builder.Set(next++, "写真ファイル名", value);
    const OpenedSample sample(builder);
    next = 0;
    for (const auto& [value, path] : cases) {
        EXPECT_EQ(sample.Photo(next++).GetImagePath(), sample.document->RootPath() + path) << value;
    }
}

TEST(ToviPhoto, LeavesOutDrawingsThatLeadOutOfTheDelivery)
{
    DeliveryBuilder builder({.photos = 1, .drawings = 2, .images = false});
    builder.Set(0, "参考図ファイル名", "../D1.JPG");
    const OpenedSample sample(builder);
    EXPECT_EQ(sample.Photo(0).GetPictureCount(), 1);
    CStringArray missing;
    sample.Photo(0).GetOutputFilename(missing);
    EXPECT_EQ(missing.GetSize(), 2);
}

TEST(ToviPhoto, OpensNoFileThatALinkBringsIn)
{
    const OpenedSample sample(DeliveryBuilder({.photos = 2, .drawings = 0}));
    const CString inside = sample.Photo(0).GetImagePath();
    const CString outside = sample.temp.Path("outside.jpg");
    std::filesystem::rename(inside, outside);
    std::filesystem::create_symlink(outside, inside);
    for (int i = 0; i < 2; ++i) {
        ToviPhoto& photo = sample.Photo(i);
        photo.UpdateImagePath();
        EXPECT_EQ(photo.IsExistFile(), i == 1);
        EXPECT_EQ(photo.LoadImage(), i == 1);
        EXPECT_EQ(photo.GetFileRenewalDate().empty(), i == 0);
    }
}

TEST(ToviPhoto, ListsReferenceDrawingsInFileOrder)
{
    DeliveryBuilder first({.section = "国交省-11", .photos = 1, .drawings = 0, .images = false});
    first.Set(0, "参考図1", "D1.JPG").Set(0, "参考図ファイル名", "");
    const OpenedSample numbered(first);
    EXPECT_EQ(Pictures(numbered.Photo(0)),
              (CStringArray{CString(numbered.document->RootPath()) + "DRA/D1.JPG"}));

    DeliveryBuilder second({.photos = 1, .drawings = 3, .images = false});
    const OpenedSample several(second);
    ToviPhoto& photo = several.Photo(0);
    ASSERT_EQ(photo.GetPictureCount(), 3);
    CStringArray path{"before"};
    photo.GetPicturePath(path, -1);
    EXPECT_TRUE(path.IsEmpty());
    photo.GetPicturePath(path, 2);
    EXPECT_EQ(path[0], Pictures(photo)[2]);
    EXPECT_THROW(photo.GetPicturePath(path, 3), InvalidArgument);
}

TEST(ToviPhoto, KeepsAfterAMediaChangeWhatWasFoundBefore)
{
    const OpenedSample sample(DeliveryBuilder({.photos = 1, .drawings = 2, .images = false}));
    ToviPhoto& photo = sample.Photo(0);
    const CString firstDisc = sample.document->RootPath();
    const CStringArray before = Pictures(photo);
    sample.temp.Write(before[0].substr(sample.temp.Path().size() + 1), "found");
    CStringArray missing;
    photo.GetOutputFilename(missing);
    EXPECT_EQ(missing, (CStringArray{photo.GetTitle(sample.DefIndex("写真ファイル名"))}))
        << "one drawing that exists speaks for all";

    const CString secondDisc = sample.temp.MakeFolder("DISK2") + "/";
    sample.document->RootPath(secondDisc.c_str());
    photo.UpdateImagePath();
    EXPECT_TRUE(CString(photo.GetImagePath()).starts_with(secondDisc + "PIC/"));
    EXPECT_EQ(Pictures(photo)[0], before[0]);
    EXPECT_TRUE(Pictures(photo)[1].starts_with(secondDisc + "DRA/"));
    EXPECT_FALSE(photo.IsExistFile());

    std::filesystem::remove(before[0]);
    missing.RemoveAll();
    photo.GetOutputFilename(missing);
    EXPECT_EQ(missing.GetSize(), 3);
}

TEST(ToviPhoto, HoldsOnePictureAtATime)
{
    const OpenedSample sample(DeliveryBuilder({.photos = 1, .drawings = 0}));
    ToviPhoto& photo = sample.Photo(0);
    EXPECT_TRUE(photo.LoadThumb());
    EXPECT_LE(photo.GetImage().GetWidth(), LumImage::thumbSide);
    EXPECT_TRUE(photo.LoadImage());
    EXPECT_GT(photo.GetImage().GetWidth(), LumImage::thumbSide);
    EXPECT_TRUE(photo.LoadThumb());
    EXPECT_LE(photo.GetImage().GetWidth(), LumImage::thumbSide);
    EXPECT_FALSE(photo.IsImageLoaded());

    ToviPhoto other(photo);
    EXPECT_FALSE(other.GetImage().IsValid());
    other.GetExif();
    other = photo;
    CString version = "?";
    other.GetExifInfoFromTitle("Exifバージョン", version);
    EXPECT_EQ(version, "") << "what was read of another file is forgotten";

    photo.ReleaseImage();
    std::filesystem::remove(photo.GetImagePath());
    EXPECT_FALSE(photo.LoadThumb());
    EXPECT_TRUE(photo.LoadThumb()) << "a bad file is tried once for each release";
    EXPECT_FALSE(photo.LoadImage());
}

TEST(ToviPhotoArray, FindsByPathWithoutRegardToCase)
{
    const OpenedSample sample(DeliveryBuilder(Plain(3)));
    const CString path = sample.Photo(1).GetImagePath();
    sample.Photo(1).ClearImagePath();
    ToviPhotoArray& photos = *sample.document->GetPhotoDataArray();
    EXPECT_EQ(photos.GetData(FoldCase(path)), &sample.Photo(1));
    EXPECT_EQ(photos.GetData("nothing"), nullptr);
}
} // namespace
