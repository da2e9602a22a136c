#include "platform/pictures/LumStripWriter.h"
#include "platform/text/CArray.h"
#include "sample/SamplePictures.h"
#include "support/TempFolder.h"

#include <QByteArray>
#include <QImage>

#include <gtest/gtest.h>

namespace
{
/// A JPEG of \p width by \p height pixels.
CString Jpeg(const TempFolder& temp, int width, int height)
{
    LumCanvas canvas(width, height, 0x808080);
    canvas.FillRect({0, 0, width / 2, height}, 0x0000FF);
    EXPECT_TRUE(canvas.GetImage().Save(temp.Path("made.jpg").c_str(), LumJpeg, 2));
    return temp.Read("made.jpg");
}

TEST(LumImage, LoadsWholeAndReduced)
{
    const TempFolder temp;
    const CString path = temp.Write("P1.JPG", Jpeg(temp, 1600, 1200));
    LumImage image;
    EXPECT_FALSE(image.IsValid());
    EXPECT_TRUE(image.Load(path.c_str()));
    EXPECT_EQ(image.GetWidth(), 1600);
    EXPECT_TRUE(image.LoadThumb(path.c_str()));
    EXPECT_EQ(image.GetWidth(), LumImage::thumbSide);
    EXPECT_EQ(image.GetHeight(), LumImage::thumbSide * 3 / 4);
    EXPECT_TRUE(image.LoadThumb(temp.Write("small.jpg", Jpeg(temp, 100, 50)).c_str()));
    EXPECT_EQ(image.GetWidth(), 100) << "a small picture is not enlarged";

    LumImage copy = image;
    copy.Rotate(90, 0xFFFFFF, false, true);
    EXPECT_EQ(copy.GetHeight(), 100);
    EXPECT_EQ(image.GetHeight(), 50);
}

TEST(LumImage, FailsOnBrokenFilesAtOnce)
{
    const TempFolder temp;
    const CString jpeg = Jpeg(temp, 800, 600);
    CString vast = jpeg;
    const std::size_t frame = vast.find("\xFF\xC0");
    ASSERT_NE(frame, CString::npos);
    vast.replace(frame + 5, 4, "\xEA\x60\xEA\x60");
    const std::pair<const char*, CString> cases[] = {
        {"empty.JPG", ""},
        {"text.JPG", "これは写真ではありません"},
        {"cut-in-the-header.jpg", jpeg.substr(0, 100)},
        {"cut-in-the-middle.jpg", jpeg.substr(0, jpeg.size() / 2)},
        {"cut-at-the-end.jpg", jpeg.substr(0, jpeg.size() - 2)},
        {"60000-by-60000.jpg", vast},
        {"60000-by-60000.bmp",
         CString("BM\0\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\x60\xEA\0\0\x60\xEA\0\0\1\0\x18\0", 30) +
             CString(24, '\0')},
        {"no-picture.svg", "<svg><image href='data:image/jpeg;base64,AAAA'/></svg>"},
        {"from-outside.svg",
         "<svg xmlns:xlink='x'><image xlink:href='" + temp.Path("made.jpg") + "'/></svg>"},
        {"no-xml.svg", "<svg"},
    };
    for (const auto& [name, bytes] : cases) {
        const CString path = temp.Write(name, bytes);
        LumImage image;
        EXPECT_FALSE(image.Load(path.c_str())) << name;
        EXPECT_FALSE(image.LoadThumb(path.c_str())) << name;
        EXPECT_FALSE(image.IsValid());
    }
    LumImage image;
    EXPECT_FALSE(image.Load(""));
    EXPECT_FALSE(image.Load(temp.Path().c_str()));
}

TEST(LumImage, StandsAsItsExifOrientationWants)
{
    const TempFolder temp;
    const CString jpeg = Jpeg(temp, 400, 200);
    // The left half is red; orientation 6 has it on top.
    const CString exif("\xFF\xE1\0\x22"
                       "Exif\0\0II*\0\x08\0\0\0\1\0\x12\1\3\0\1\0\0\0\6\0\0\0\0\0\0\0",
                       36);
    const CString path = temp.Write("turned.jpg", jpeg.substr(0, 2) + exif + jpeg.substr(2));
    LumImage image;
    EXPECT_TRUE(image.LoadThumb(path.c_str()));
    EXPECT_EQ(image.GetHeight(), 2 * image.GetWidth());
    int width = 0;
    int height = 0;
    EXPECT_TRUE(LumImage::GetCommentImageSize(path.c_str(), width, height));
    EXPECT_EQ(width, 400) << "the header's dimensions are those before turning";
}

TEST(LumImage, TakesTheMainPictureOutOfAnSvg)
{
    const TempFolder temp;
    const auto encoded = [](const CString& bytes) {
        return QByteArray::fromStdString(bytes).toBase64().toStdString();
    };
    const auto image = [&](int width) {
        return "<image xlink:href=\"data:image/jpeg;base64," + encoded(Jpeg(temp, width, 100)) +
               "\"/>";
    };
    LumImage loaded;
    const CString board = "<g id=\"dcp_chalkboard_img\">" + image(150) + "</g>";
    const CString named =
        "<svg xmlns:xlink=\"x\">" + board + "<g id=\"dcp_org_img\">" + image(200) + "</g></svg>";
    EXPECT_TRUE(loaded.Load(temp.Write("named.SVG", named).c_str()));
    EXPECT_EQ(loaded.GetWidth(), 200);
    EXPECT_TRUE(
        loaded.Load(temp.Write("first.svg", "<svg xmlns:xlink=\"x\">" + board + "</svg>").c_str()));
    EXPECT_EQ(loaded.GetWidth(), 150);
}

TEST(LumImage, TurnsBilevelPicturesGrey)
{
    EnsureSampleGui();
    const TempFolder temp;
    const CString path = temp.Write("D1.TIF", DrawingPicture({}, "横断図", 1, ".TIF"));
    LumImage image;
    ASSERT_TRUE(image.Load(path.c_str()));
    EXPECT_TRUE(image.ConvGrayScaleFromMono());
    EXPECT_FALSE(image.ConvGrayScaleFromMono());
    EXPECT_TRUE(image.LoadThumb(path.c_str()));
    EXPECT_LE(image.GetWidth(), LumImage::thumbSide);
}
TEST(LumStripWriter, WritesThePixelsOfTheWholePicture)
{
    constexpr int width = 70;
    constexpr int heights[] = {1, 30, 16, 2};
    const auto paint = [](LumCanvas& canvas, int top) {
        canvas.FillRect({3, 10 - top, 50, 30}, 0x1020F0);
        canvas.FillRect({40, 20 - top, 30, 29}, 0x80FF00);
    };
    LumCanvas whole(width, 49, 0xFFFFFF);
    paint(whole, 0);
    for (const LumImageType type : {LumPng, LumJpeg}) {
        std::string bytes;
        LumStripWriter writer(type, 2, width, 49, [&bytes](std::string_view more) {
            bytes += more;
            return true;
        });
        int top = 0;
        for (const int height : heights) {
            LumCanvas strip(width, height, 0xFFFFFF);
            paint(strip, top);
            EXPECT_TRUE(writer.Append(strip));
            top += height;
        }
        EXPECT_TRUE(writer.Finish());
        const auto pixels = [](const std::string& encoded) {
            return QImage::fromData(QByteArray::fromStdString(encoded));
        };
        const auto expected = whole.GetImage().Encode(type, 2);
        ASSERT_TRUE(expected);
        EXPECT_TRUE(pixels(bytes) == pixels(*expected)) << type;
    }
    EXPECT_THROW(LumStripWriter(LumTiff, 2, 1, 1, {}), InvalidArgument);
}
} // namespace
