#include "platform/controls/ImageView.h"
#include "platform/controls/ReducedImages.h"

#include <gtest/gtest.h>

#include <ostream>

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

struct FitCase
{
    const char* name;
    QSize picture;
    QSize window;
    QRectF place;
};

TEST(ImageView, FitsTheWholePictureIntoTheMiddle)
{
    const FitCase cases[] = {
        {"wide", {1600, 1200}, {400, 400}, {0, 50, 400, 300}},
        {"high", {1200, 1600}, {400, 400}, {50, 0, 300, 400}},
        {"a small one is enlarged", {320, 240}, {640, 480}, {0, 0, 640, 480}},
        {"but not without end", {1, 1}, {400, 400}, {184, 184, 32, 32}},
        {"none", {}, {400, 400}, {200, 200, 0, 0}},
    };
    for (const FitCase& fit : cases) {
        EXPECT_EQ(Viewed(fit.picture, fit.window).Placement(), fit.place) << fit.name;
    }
}

TEST(ImageView, ZoomsAboutThePlaceAndStopsAtRoundSizes)
{
    ImageView view = Viewed({1600, 1200}, {400, 300});
    const QPointF cursor(100, 200);
    const QPointF held = PointAt(view, cursor);
    int steps = 0;
    bool sawFullSize = false;
    for (; view.Zoom() < ImageView::largestZoom; ++steps) {
        view.ZoomBy(1, cursor);
        const QPointF off = PointAt(view, cursor) - held;
        EXPECT_LE(off.manhattanLength() * view.Zoom(), 2) << "at zoom " << view.Zoom();
        sawFullSize = sawFullSize || view.Zoom() == 1;
        ASSERT_LT(steps, 100);
    }
    EXPECT_TRUE(sawFullSize);
    // 0.25 to 32 is seven doublings.
    EXPECT_EQ(steps, 7 * ImageView::stepsToDouble);
    view.ZoomBy(-3.7, cursor);
    for (int step = 0; step < 100; ++step) view.ZoomBy(-1, cursor);
    EXPECT_TRUE(view.IsFit());
    EXPECT_EQ(view.Placement(), QRectF(0, 0, 400, 300));
    view.ZoomBy(1e9, cursor);
    EXPECT_EQ(view.Zoom(), 1) << "one turn of the wheel doesn't pass 100 %";
}

TEST(ImageView, ShowsAPictureSmallerThanTheWindowDownToItsOwnSize)
{
    ImageView view = Viewed({100, 100}, {400, 400});
    EXPECT_EQ(view.Zoom(), 4);
    view.ZoomBy(-100, {0, 0});
    EXPECT_EQ(view.Placement(), QRectF(150, 150, 100, 100));
    view.ZoomBy(-100, {0, 0});
    EXPECT_EQ(view.Zoom(), 1);
    view.ZoomBy(100, {0, 0});
    EXPECT_TRUE(view.IsFit()) << "a step up stops at the fitted size";
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
    struct
    {
        double zoom;
        int width;
    } const cases[] = {{0.26, 501}, {32, 1001}, {1, 1001}, {0.51, 1001}, {0.5, 501}, {0.25, 251}};
    for (const auto& tried : cases) EXPECT_EQ(images.At(tried.zoom).width(), tried.width);
    EXPECT_EQ(images.At(1e-9).size(), QSize(1, 1));
    EXPECT_TRUE(ReducedImages().IsNull());
}
} // namespace
