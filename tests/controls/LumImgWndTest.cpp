#include "platform/controls/LumImgWnd.h"
#include "platform/pictures/LumCanvas.h"

#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

#include <memory>

namespace
{
/// A picture whose left half is red and whose right half is blue.
LumImage Halves(int width, int height)
{
    LumCanvas canvas(width, height, 0xFF0000);
    canvas.FillRect({0, 0, width / 2, height}, 0x0000FF);
    return canvas.GetImage();
}

std::unique_ptr<LumImgWnd> Shown(const LumImage& image)
{
    auto window = std::make_unique<LumImgWnd>();
    window->resize(400, 300);
    window->show();
    window->SetImage(&image);
    return window;
}

void Wheel(QWidget& window, QPointF place, int turn)
{
    QWheelEvent event(place, window.mapToGlobal(place), {}, {0, turn}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&window, &event);
}

void Drag(QWidget& window, QPoint from, QPoint to)
{
    QTest::mousePress(&window, Qt::LeftButton, {}, from);
    QMouseEvent move(QEvent::MouseMove, to, window.mapToGlobal(to), Qt::NoButton, Qt::LeftButton,
                     Qt::NoModifier);
    QApplication::sendEvent(&window, &move);
    QTest::mouseRelease(&window, Qt::LeftButton, {}, to);
}

void DoubleClick(QWidget& window, QPoint place)
{
    QTest::mouseClick(&window, Qt::LeftButton, {}, place);
    QTest::mouseDClick(&window, Qt::LeftButton, {}, place);
}

QColor ColorAt(QWidget& window, QPoint place)
{
    const QImage shown = window.grab().toImage();
    return shown.pixelColor((QPointF(place) * shown.devicePixelRatio()).toPoint());
}

/// The corner of the picture, in pixels of the layout.
QPointF Corner(const LumImgWnd& window)
{
    return window.View().Placement().topLeft() / window.devicePixelRatioF();
}

TEST(LumImgWnd, ShowsThePictureFittedAndNothingOnceItIsTakenAway)
{
    const auto window = Shown(Halves(4000, 2000));
    EXPECT_TRUE(window->IsEnableImage());
    const QColor around = window->palette().color(QPalette::Window);
    EXPECT_EQ(ColorAt(*window, {100, 150}), QColor(Qt::red));
    EXPECT_EQ(ColorAt(*window, {300, 150}), QColor(Qt::blue));
    EXPECT_EQ(ColorAt(*window, {300, 20}), around);
    window->SetDrawFast(true);
    EXPECT_EQ(ColorAt(*window, {100, 150}), QColor(Qt::red));
    EXPECT_EQ(ColorAt(*window, {300, 20}), around);
    window->SetImage(nullptr);
    EXPECT_FALSE(window->IsEnableImage());
    EXPECT_EQ(ColorAt(*window, {100, 150}), around);
}

TEST(LumImgWnd, ZoomsByWheelAndMovesByDrag)
{
    const auto window = Shown(Halves(4000, 3000));
    // Whoever hears of the click may clear the anchor.
    QObject::connect(window.get(), &LumImgWnd::Clicked, window.get(), &LumImgWnd::ExecClearAnchor);
    for (int turn = 0; turn < 20; ++turn) Wheel(*window, {100, 150}, 120);
    EXPECT_EQ(ColorAt(*window, {390, 150}), QColor(Qt::red));
    const QPointF before = Corner(*window);
    Drag(*window, {300, 200}, {280, 230});
    EXPECT_EQ(Corner(*window), before + QPointF(-20, 30));
    window->SetCommand(1);
    Drag(*window, {300, 200}, {280, 230});
    Wheel(*window, {100, 150}, -120);
    EXPECT_EQ(Corner(*window), before + QPointF(-20, 30));
}

TEST(LumImgWnd, TellsOfClicksAndTogglesByDoubleClick)
{
    const auto window = Shown(Halves(4000, 3000));
    const QSignalSpy clicked(window.get(), &LumImgWnd::Clicked);
    const QSignalSpy doubleClicked(window.get(), &LumImgWnd::DoubleClicked);
    const QSignalSpy rightClicked(window.get(), &LumImgWnd::RightClicked);
    DoubleClick(*window, {200, 150});
    EXPECT_EQ(window->View().Zoom(), 1);
    DoubleClick(*window, {200, 150});
    EXPECT_TRUE(window->View().IsFit());
    window->SetDoubleClickZoom(false);
    DoubleClick(*window, {200, 150});
    EXPECT_TRUE(window->View().IsFit());
    EXPECT_EQ(doubleClicked.size(), 3);
    QTest::mouseClick(window.get(), Qt::RightButton, {}, {200, 150});
    EXPECT_EQ(rightClicked.size(), 1);
    EXPECT_EQ(clicked.size(), 3) << "a right click is none";
}

/// A window that counts the keys that its child leaves to it.
class KeyCounter : public QWidget
{
public:
    int keys = 0;

protected:
    void keyPressEvent(QKeyEvent*) override { ++keys; }
};

TEST(LumImgWnd, IsWorkedByKeyAndLeavesTheOthersToItsParent)
{
    KeyCounter parent;
    parent.resize(400, 300);
    LumImgWnd window(&parent);
    window.resize(400, 300);
    parent.show();
    QTest::keyClick(&window, Qt::Key_Plus);
    EXPECT_EQ(parent.keys, 1) << "nothing to zoom";
    const LumImage image = Halves(4000, 3000);
    window.SetImage(&image);
    QTest::keyClick(&window, Qt::Key_Right);
    QTest::keyClick(&window, Qt::Key_PageDown);
    EXPECT_EQ(parent.keys, 3) << "the whole picture is in sight";
    QTest::keyClick(&window, Qt::Key_Plus);
    const double zoomed = window.View().Zoom();
    QTest::keyClick(&window, Qt::Key_Minus);
    EXPECT_LT(window.View().Zoom(), zoomed);
    QTest::keyClick(&window, Qt::Key_Asterisk);
    EXPECT_EQ(window.View().Zoom(), 1);
    const QPointF before = Corner(window);
    QTest::keyClick(&window, Qt::Key_Right);
    QTest::keyClick(&window, Qt::Key_Down);
    EXPECT_LT(Corner(window).x(), before.x());
    EXPECT_LT(Corner(window).y(), before.y());
    parent.keys = 0;
    QTest::keyClick(&window, Qt::Key_Right, Qt::ControlModifier);
    EXPECT_EQ(parent.keys, 2) << "Ctrl itself and the arrow";
    QTest::keyClick(&window, Qt::Key_Slash);
    EXPECT_TRUE(window.View().IsFit());
}

TEST(LumImgWnd, KeepsTheViewOfAnotherVersionOfThePicture)
{
    LumImgWnd::m_zoomIsViewport = false;
    const auto window = Shown(Halves(4000, 3000));
    LumImgWnd::m_zoomIsViewport = true;
    EXPECT_EQ(window->View().Placement().center() / window->devicePixelRatioF(), QPointF(198, 148));
    LumCanvas brighter(4000, 3000, 0x00FF00);
    const LumImage version = brighter.GetImage();
    window->RefreshImage(&version);
    EXPECT_EQ(window->View().Zoom(), 1);
    EXPECT_EQ(ColorAt(*window, {200, 150}), QColor(Qt::green));
    const LumImage turned = Halves(3000, 4000);
    window->RefreshImage(&turned);
    EXPECT_TRUE(window->View().IsFit());
    window->RefreshImage(nullptr);
    EXPECT_FALSE(window->IsEnableImage());
}
} // namespace
