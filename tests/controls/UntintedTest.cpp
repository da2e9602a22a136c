// A photograph is evidence: whatever has the focus or is selected, its pixels are those of the
// file.

#include "platform/controls/GaluListCtrl.h"
#include "platform/controls/LumImgWnd.h"
#include "platform/pictures/LumImage.h"
#include "platform/pictures/LumPicture.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QListView>
#include <QStandardItemModel>
#include <QStyle>
#include <QStyleFactory>
#include <QTest>

namespace
{
constexpr int side = 96;

/// Every pixel another colour, as read from a file.
QImage Decoded(const TempFolder& temp)
{
    QImage image(side, side, QImage::Format_RGB32);
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) image.setPixel(x, y, qRgb(2 * x, 2 * y, x + y));
    }
    const QString path = QString::fromStdString(temp.Path("p.png"));
    image.save(path);
    return QImage(path).convertToFormat(QImage::Format_RGB32);
}

/// What \p widget shows of the picture that it holds in \p place.
QImage ShownIn(QWidget& widget, QRect place)
{
    return widget.grab(place).toImage().convertToFormat(QImage::Format_RGB32);
}

/// As by the keyboard, from when on styles show the focus.
void GiveFocus(QWidget& window)
{
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    window.setAttribute(Qt::WA_KeyboardFocusChange);
    window.setFocus(Qt::TabFocusReason);
}

class Untinted : public testing::TestWithParam<const char*>
{
protected:
    void SetUp() override
    {
        if (qApp->devicePixelRatio() != 1) GTEST_SKIP() << "pictures are enlarged";
        before = QApplication::style()->name();
        QApplication::setStyle(QString::fromUtf8(GetParam()));
    }
    void TearDown() override
    {
        if (!before.isEmpty()) QApplication::setStyle(before);
    }

    TempFolder temp;
    QString before;
};

TEST_P(Untinted, IsThePictureWithTheFocus)
{
    const QImage decoded = Decoded(temp);
    LumImgWnd window;
    // The picture fills all the room that there is for it.
    window.resize(side + 4, side + 4);
    window.show();
    window.SetImages(ReducedImages(decoded));
    const QRect middle = QRect({0, 0}, QSize(side, side)).translated(2, 2);
    window.clearFocus();
    const QImage plain = window.grab().toImage();
    EXPECT_EQ(ShownIn(window, middle), decoded);
    GiveFocus(window);
    EXPECT_EQ(ShownIn(window, middle), decoded);
    EXPECT_NE(window.grab().toImage(), plain) << "a frame tells of the focus";
}

TEST_P(Untinted, AreThePicturesOfAListSelectedAndWithTheFocus)
{
    const QImage decoded = Decoded(temp);
    QStandardItemModel model(2, 1);
    for (int row = 0; row < 2; ++row) {
        model.setData(model.index(row, 0), QPixmap::fromImage(decoded), Qt::DecorationRole);
    }
    GaluListCtrl list(GaluListCtrl::Look::Icon);
    list.SetIconSpacing({side, side}, {side + 24, side + 32});
    list.SetModel(&model);
    list.resize(400, 300);
    list.show();
    GiveFocus(list);
    list.Select(0);
    for (int row = 0; row < 2; ++row) {
        const QRect item = list.GetItemRect(row);
        const QRect place({item.left() + (item.width() - side) / 2, item.top() + 2},
                          decoded.size());
        EXPECT_EQ(ShownIn(*list.View()->viewport(), place), decoded) << row;
    }
}

INSTANTIATE_TEST_SUITE_P(Styles, Untinted, testing::Values("Fusion", "Windows"));
} // namespace
