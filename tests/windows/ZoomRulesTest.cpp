#include "windows/zoom/ZoomRules.h"
#include "platform/pictures/ImageSource.h"
#include "platform/pictures/LumPicture.h"
#include "platform/pictures/ToneCurve.h"

#include <gmock/gmock.h>

#include <QBuffer>
#include <QImageWriter>
#include <QPainter>

#include <random>

namespace
{
using namespace ZoomRules;
using testing::ElementsAre;

TEST(ZoomRules, AnswerARequest)
{
    const std::vector<Window> six(6, {"/a/1.JPG", true});
    std::vector<Window> oneLoose = six;
    oneLoose[3] = {"/a/4.JPG", false};
    const struct
    {
        const char* name;
        std::vector<Window> windows;
        Answer answer;
    } cases[] = {
        {"the first", {}, {Answer::Create, 0}},
        {"a fixed one has it", {{"/a/1.JPG", true}, {"/A/9.jpg", true}}, {Answer::Raise, 1}},
        {"one that has it before a loose one",
         {{"/a/1.JPG", false}, {"/a/9.JPG", true}},
         {Answer::Raise, 1}},
        {"the first loose one",
         {{"/a/1.JPG", true}, {"/a/2.JPG", false}, {"", false}},
         {Answer::Retarget, 1}},
        {"all fixed", {{"/a/1.JPG", true}}, {Answer::Create, 1}},
        {"six fixed", six, {Answer::Refuse, 0}},
        {"six, one of them loose", oneLoose, {Answer::Retarget, 3}},
    };
    for (const auto& c : cases) EXPECT_EQ(AnswerTo(c.windows, "/a/9.JPG"), c.answer) << c.name;
}

TEST(ZoomRules, PlaceWindowsOnTheScreen)
{
    EXPECT_EQ(UsableSize({247, 101}), QSize(247, 101));
    EXPECT_EQ(UsableSize({246, 700}), QSize(800, 600));
    EXPECT_EQ(UsableSize({900, 100}), QSize(800, 600));

    const QRect screen(100, 30, 1280, 770);
    EXPECT_EQ(NewPlace(2, 120, {600, 400}, screen), QRect(200, 170, 600, 400));
    EXPECT_EQ(NewPlace(5, 700, {600, 400}, screen), QRect(350, 400, 600, 400));
    EXPECT_EQ(KeptOn(screen, {5000, -900, 2000, 300}), QRect(100, 30, 1280, 300));

    const QRect desk(0, 0, 1000, 900);
    EXPECT_THAT(Arranged(1, desk), ElementsAre(desk));
    EXPECT_THAT(Arranged(2, desk), ElementsAre(QRect(0, 0, 1000, 450), QRect(0, 450, 1000, 450)));
    EXPECT_EQ(Arranged(3, desk)[2], QRect(500, 0, 500, 450));
    EXPECT_EQ(Arranged(4, desk)[3], QRect(500, 450, 500, 450));
    EXPECT_THAT(Arranged(5, desk),
                ElementsAre(QRect(0, 0, 500, 300), QRect(0, 300, 500, 300), QRect(0, 600, 500, 300),
                            QRect(500, 0, 500, 300), QRect(500, 300, 500, 300)));
    EXPECT_EQ(Arranged(6, screen)[5], QRect(740, 542, 640, 256));
}

TEST(ZoomRules, TurnAndLighten)
{
    int rotation = 0;
    for (int turn = 0; turn < 3; ++turn) rotation = Turned(rotation, 90);
    EXPECT_EQ(rotation, 270);
    EXPECT_EQ(Turned(rotation, 90), 0);
    EXPECT_EQ(Turned(0, -90), -90);
    // A part in the upper left of a picture of 400 × 300, as it lies once that was turned.
    const QRect part(10, 20, 30, 40);
    EXPECT_EQ(TurnedBack({240, 10, 40, 30}, {300, 400}, 90), part);
    EXPECT_EQ(TurnedBack({360, 240, 30, 40}, {400, 300}, 180), part);
    EXPECT_EQ(TurnedBack(part, {400, 300}, -90), QRect(240, 10, 40, 30));

    EXPECT_THAT(BrightnessSteps(BrightnessAt(-30)), ElementsAre(600));
    EXPECT_THAT(BrightnessSteps(BrightnessAt(-100)), ElementsAre(1000, 1000));
    EXPECT_THAT(BrightnessSteps(BrightnessAt(-70)), ElementsAre(1000, 400));
    EXPECT_THAT(BrightnessSteps(BrightnessAt(30)), ElementsAre());
    EXPECT_THAT(BrightnessSteps(BrightnessAt(70)), ElementsAre(-1000));
    const ToneCurve lighter = BrightnessCurve(1400);
    const ToneCurve darker = BrightnessCurve(-1000);
    EXPECT_EQ(lighter[0], 0);
    EXPECT_EQ(lighter[255], 255);
    EXPECT_GT(lighter[100], ContrastCurve(1000)[100]);
    EXPECT_LT(darker[100], 100);
    EXPECT_TRUE(std::is_sorted(lighter.begin(), lighter.end()));
    EXPECT_EQ(BrightnessCurve(-600)[77], 77);
}

/// The bytes of a JPEG file with the picture \p image, whose Exif data want it turned.
std::string JpegOf(const QImage& image, QImageIOHandler::Transformations orientation)
{
    QBuffer buffer;
    QImageWriter writer(&buffer, "jpeg");
    writer.setQuality(95);
    EXPECT_TRUE(writer.write(image));
    constexpr char codes[] = {1, 2, 4, 3, 6, 7, 5, 8};
    std::string exif("\xFF\xE1\0\x22"
                     "Exif\0\0II*\0\x08\0\0\0\x01\0\x12\x01\x03\0\x01\0\0\0?\0\0\0\0\0\0\0",
                     36);
    exif[28] = codes[orientation.toInt()];
    return buffer.data().toStdString().insert(2, exif);
}

/// A JPEG file of four fields, red, green, blue and white from the upper left as it is looked at.
std::string Fields(QSize shown, QImageIOHandler::Transformations orientation)
{
    const bool isTurned = orientation & QImageIOHandler::TransformationRotate90;
    QImage image(shown, QImage::Format_RGB32);
    QPainter painter(&image);
    const QSize half = shown / 2;
    painter.fillRect(0, 0, half.width(), half.height(), Qt::red);
    painter.fillRect(half.width(), 0, half.width(), half.height(), Qt::green);
    painter.fillRect(0, half.height(), half.width(), half.height(), Qt::blue);
    painter.fillRect(half.width(), half.height(), half.width(), half.height(), Qt::white);
    painter.end();
    // As the camera has held it.
    if (isTurned) image = image.transformed(QTransform().rotate(-90));
    image = image.mirrored(orientation & QImageIOHandler::TransformationMirror,
                           orientation & QImageIOHandler::TransformationFlip);
    return JpegOf(image, orientation);
}

CString ColorIn(const QImage& image, QPoint place)
{
    const QColor color = image.pixelColor(place);
    CString name;
    if (color.red() > 128) name += "r";
    if (color.green() > 128) name += "g";
    if (color.blue() > 128) name += "b";
    return name;
}

TEST(ImageSource, ReadsAPartAsItIsLookedAt)
{
    for (int orientation = 0; orientation < 8; ++orientation) {
        const ImageSource source(
            Fields({1000, 600}, static_cast<QImageIOHandler::Transformation>(orientation)));
        ASSERT_EQ(source.Size(), QSize(1000, 600)) << orientation;
        QRect part(450, 270, 400, 200);
        const QImage image = source.ReadPart(part, {100, 100});
        EXPECT_TRUE(part.contains(QRect(450, 270, 400, 200))) << orientation;
        EXPECT_LE(part.width(), 400 + 16) << "widened by no more than needed";
        EXPECT_LE(image.width(), 104);
        const auto at = [&](int x, int y) {
            return ColorIn(image, QPoint((x - part.left()) * image.width() / part.width(),
                                         (y - part.top()) * image.height() / part.height()));
        };
        EXPECT_EQ(at(465, 278), "r") << orientation;
        EXPECT_EQ(at(800, 278), "g") << orientation;
        EXPECT_EQ(at(465, 450), "b") << orientation;
        EXPECT_EQ(at(800, 450), "rgb") << orientation;
    }
}

/// A JPEG file of a picture in which no two places look the same.
std::string Grain(QImageIOHandler::Transformation orientation)
{
    QImage image(400, 300, QImage::Format_RGB32);
    std::minstd_rand random;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            image.setPixel(x, y, qRgb(static_cast<int>(random() % 256), 80, 80));
        }
    }
    return JpegOf(image, orientation);
}

TEST(ImageSource, ShowsWhatIsThereOfAPictureThatWasCutOff)
{
    using enum QImageIOHandler::Transformation;
    for (const auto turned : {TransformationNone, TransformationRotate180}) {
        const std::string bytes = Grain(turned);
        const QImage whole = ImageSource(bytes).Read({});
        const ImageSource cut(bytes.substr(0, bytes.size() / 2));
        EXPECT_EQ(cut.Fault(), PictureFault::Cut);
        EXPECT_TRUE(cut.Read({}).isNull()) << "for those who don't ask for less";
        const QImage there = cut.ReadCut({});
        ASSERT_EQ(there.size(), whole.size());
        const QRect upper(0, 0, 400, 110);
        const QRect lower(0, 190, 400, 110);
        const bool isUpright = turned == TransformationNone;
        const QRect good = isUpright ? upper : lower;
        EXPECT_EQ(there.copy(good), whole.convertToFormat(there.format()).copy(good));
        const QImage missing = there.copy(isUpright ? lower : upper);
        EXPECT_TRUE(
            missing.convertToFormat(QImage::Format_Grayscale8).convertToFormat(missing.format()) ==
            missing)
            << "a pattern of greys";
        EXPECT_EQ(cut.ReadCut({100, 100}).size(), QSize(100, 75));
    }
}
} // namespace
