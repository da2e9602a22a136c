#include "platform/controls/ImageView.h"
#include "platform/pictures/ReducedImages.h"

#include <gtest/gtest.h>

namespace
{
ImageView Viewed(QSize picture, QSize window)
{
    ImageView view;
    view.SetWindow(window);
    view.SetPicture(picture);
    return view;
}

/// What of the picture stands at \p place of the window.
QPointF PointAt(const ImageView& view, QPointF place)
{
    return (place - view.Placement().topLeft()) / view.Zoom();
}

TEST(ImageView, FitsTheWholePictureIntoTheMiddle)
{
    EXPECT_EQ(Viewed({1600, 1200}, {400, 400}).Placement(), QRectF(0, 50, 400, 300));
    EXPECT_EQ(Viewed({1200, 1600}, {400, 400}).Placement(), QRectF(50, 0, 300, 400));
    EXPECT_EQ(Viewed({320, 240}, {640, 480}).Placement(), QRectF(0, 0, 640, 480)) << "enlarged";
    EXPECT_EQ(Viewed({1, 1}, {400, 400}).Placement(), QRectF(184, 184, 32, 32)) << "to an end";
    EXPECT_EQ(Viewed({}, {400, 400}).Placement(), QRectF(200, 200, 0, 0)) << "none";
}

TEST(ImageView, ZoomsAboutThePlaceAndStopsAtRoundSizes)
{
    ImageView view = Viewed({1600, 1200}, {400, 300});
    const QPointF cursor(100, 200);
    const QPointF held = PointAt(view, cursor);
    // 0.25 to 32 is seven doublings.
    for (int step = 1; step <= 7 * ImageView::stepsToDouble; ++step) {
        view.ZoomBy(1, cursor);
        const QPointF off = PointAt(view, cursor) - held;
        EXPECT_LE(off.manhattanLength() * view.Zoom(), 2) << "at zoom " << view.Zoom();
        EXPECT_TRUE(view.Zoom() == 1 || step != 2 * ImageView::stepsToDouble);
    }
    EXPECT_EQ(view.Zoom(), ImageView::largestZoom);
    view.ZoomBy(-3.7, cursor);
    for (int step = 0; step < 100; ++step) view.ZoomBy(-1, cursor);
    EXPECT_TRUE(view.IsFit());
    EXPECT_EQ(view.Placement(), QRectF(0, 0, 400, 300));
    view.ZoomBy(1e9, cursor);
    EXPECT_EQ(view.Zoom(), 1) << "one turn of the wheel doesn't pass 100 %";

    ImageView small = Viewed({100, 100}, {400, 400});
    for (int turn = 0; turn < 2; ++turn) {
        small.ZoomBy(-100, {0, 0});
        EXPECT_EQ(small.Placement(), QRectF(150, 150, 100, 100)) << "its own size";
    }
    small.ZoomBy(100, {0, 0});
    EXPECT_TRUE(small.IsFit()) << "a step up stops at the fitted size";
}

TEST(ImageView, PansUpToTheEdges)
{
    ImageView view = Viewed({1600, 300}, {400, 400});
    EXPECT_FALSE(view.Pan({50, 50})) << "all of it is in sight";
    view.Toggle({200, 200});
    EXPECT_EQ(view.Zoom(), 1);
    EXPECT_TRUE(view.Pan({-10000, 80}));
    EXPECT_EQ(view.Placement(), QRectF(-1200, 50, 1600, 300));
    EXPECT_TRUE(view.Pan({10000, 0}));
    EXPECT_EQ(view.Placement().left(), 0);
    EXPECT_FALSE(view.Pan({1, 0}));
    view.Toggle({0, 0});
    EXPECT_TRUE(view.IsFit());
}

TEST(ImageView, KeepsTheMiddleWhenTheWindowChanges)
{
    ImageView view = Viewed({1600, 1200}, {400, 300});
    view.Toggle({300, 200});
    const QPointF middle = PointAt(view, {200, 150});
    view.SetWindow({600, 500});
    EXPECT_EQ(PointAt(view, {300, 250}), middle);
    view.SetWindow({1700, 1300});
    EXPECT_EQ(view.Placement(), QRectF(50, 50, 1600, 1200));
    view.Fit();
    view.SetWindow({160, 120});
    EXPECT_EQ(view.Placement(), QRectF(0, 0, 160, 120)) << "what is fitted stays fitted";
    view.SetWindow({0, 0});
    EXPECT_TRUE(view.IsFit());
}

TEST(ReducedImages, GivesTheSmallestCopyThatIsLargeEnough)
{
    QImage picture(1001, 600, QImage::Format_Grayscale8);
    picture.fill(Qt::gray);
    ReducedImages images(picture);
    const std::pair<double, int> cases[] = {
        {0.26, 501}, {32, 1001}, {0.51, 1001}, {0.5, 501}, {0.25, 251}};
    for (const auto& [zoom, width] : cases) EXPECT_EQ(images.At(zoom).width(), width);
    EXPECT_EQ(images.At(1e-9).size(), QSize(1, 1));
    EXPECT_TRUE(ReducedImages().IsNull());
}

TEST(ReducedImages, AreTheMeansOfTheirPixels)
{
    QImage picture(5, 3, QImage::Format_RGB32);
    picture.fill(qRgb(10, 20, 200));
    picture.setPixel(0, 0, qRgb(50, 20, 200));
    picture.setPixel(4, 2, qRgb(10, 20, 100));
    ReducedImages images(picture);
    images.MakeAll(3);
    const QImage& half = images.At(0.5);
    ASSERT_EQ(half.size(), QSize(3, 2));
    EXPECT_EQ(half.pixel(0, 0), qRgb(20, 20, 200));
    EXPECT_EQ(half.pixel(1, 1), qRgb(10, 20, 200));
    EXPECT_EQ(half.pixel(2, 1), qRgb(10, 20, 100));
    EXPECT_EQ(images.Bytes(), static_cast<std::size_t>((5 * 3 + 3 * 2) * 4));
}
} // namespace
