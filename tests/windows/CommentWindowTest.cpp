#include "platform/controls/WindowId.h"
#include "platform/text/QtText.h"
#include "review/SlideMode.h"
#include "support/TestHost.h"
#include "windows/cell/ToviCommentWindow.h"
#include "windows/pictures/FitText.h"

#include <gmock/gmock.h>

#include <QSignalSpy>
#include <QTest>
#include <QTextDocumentFragment>

#include <memory>

namespace
{
/// A full-width character counts 2, any other 1.
int Measured(const CString& text)
{
    std::string_view rest = text;
    int width = 0;
    while (!rest.empty()) width += TakeCodePoint(rest) > 0xFF ? 2 : 1;
    return width;
}

TEST(FitText, CutsToTheWidth)
{
    struct Row
    {
        const char* text;
        int width;
        const char* shown;
    };
    constexpr Row rows[] = {
        {"", 100, ""},
        {"確認", 0, ""},
        {"確認", -1, ""},
        {"確認", 6, "　確認"},
        {"確認", 5, "　..."},
        {"舗装厚を確認", 14, "　舗装厚を確認"},
        {"舗装厚を確認", 13, "　舗装厚..."},
        {"舗装厚を確認", 12, "　舗装厚..."},
        {"舗装厚を確認", 11, "　舗装..."},
        {"舗装厚を確認", 1, "　..."},
        {"t=5cm不足", 11, "　t=5cm不足"},
        {"t=5cm不足", 10, "　t=5c..."},
        {"1 2 3 4 5 6 7 8 9 10 11 12 13 14 15", 34, "　1 2 3 4 5 6 7 8 9 10 11 12 1..."},
        {"1 2 3 4 5 6 7 8 9 10 11 12 13 14 15", 37, "　1 2 3 4 5 6 7 8 9 10 11 12 13 14 15"},
        {"\xE7\x94", 3, "　..."},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(FitText(row.text, row.width, Measured), row.shown) << row.text << row.width;
    }
}

TEST(FitText, MeasuresLittleOfALongText)
{
    const CString text(1'000'000, 'x');
    std::size_t measured = 0;
    const CString shown = FitText(text, 1000, [&measured](const CString& part) {
        measured += part.size();
        return Measured(part);
    });
    EXPECT_EQ(Measured(shown), 999);
    EXPECT_LT(measured, 50'000u);
}

struct Strip
{
    Strip()
    {
        parent.resize(400, 100);
        parent.show();
        window->Create("舗装厚を確認", {10, 20, 150, 30}, &parent, 1136, 7);
        QObject::connect(window, &ToviCommentWindow::Clicked, window,
                         [this](ToviCommentWindow* strip) { clicked += strip == window; });
        QObject::connect(window, &ToviCommentWindow::DoubleClicked, window,
                         [this](ToviCommentWindow* strip) { doubleClicked += strip == window; });
    }
    ~Strip() { SetSlideMode(false); }

    std::string ToolTip() const
    {
        return FromQtText(QTextDocumentFragment::fromHtml(window->toolTip()).toPlainText());
    }

    TestHost host;
    QWidget parent;
    ToviCommentWindow* const window = new ToviCommentWindow;
    int clicked = 0;
    int doubleClicked = 0;
};

TEST(CommentWindow, ShowsWhatFitsAndTellsAll)
{
    Strip strip;
    EXPECT_EQ(strip.window->geometry(), QRect(10, 20, 150, 30));
    EXPECT_EQ(WindowId(strip.window), 1136);
    EXPECT_EQ(strip.window->GetPhotoPosition(), 7);
    EXPECT_EQ(strip.window->GetShownText(), "　舗装厚を確認");

    strip.window->resize(60, 30);
    EXPECT_THAT(strip.window->GetShownText(), testing::EndsWith("..."));
    EXPECT_EQ(strip.ToolTip(), "舗装厚を確認");
    strip.window->resize(0, 30);
    EXPECT_EQ(strip.window->GetShownText(), "");
    strip.window->resize(150, 30);
    EXPECT_EQ(strip.window->GetShownText(), "　舗装厚を確認");

    strip.window->SetComment("<b>不足</b>\n再提出");
    EXPECT_EQ(strip.window->GetShownText(), "　<b>不足</b> 再提出");
    EXPECT_EQ(strip.ToolTip(), "<b>不足</b>\n再提出");
}

TEST(CommentWindow, IsSeenOnlyWithAComment)
{
    Strip strip;
    EXPECT_TRUE(strip.window->isVisible());
    strip.window->ShowIfAny(false);
    EXPECT_FALSE(strip.window->isVisible());
    strip.window->SetComment("");
    strip.window->ShowIfAny(true);
    EXPECT_FALSE(strip.window->isVisible());
    strip.window->SetComment("再提出");
    strip.window->ShowIfAny(true);
    EXPECT_TRUE(strip.window->isVisible());
}

TEST(CommentWindow, TellsClicks)
{
    Strip strip;
    QTest::mouseClick(strip.window, Qt::LeftButton);
    EXPECT_EQ(strip.clicked, 1);
    QTest::mouseClick(strip.window, Qt::RightButton);
    QTest::mouseDClick(strip.window, Qt::RightButton);
    EXPECT_EQ(strip.clicked, 1);
    EXPECT_EQ(strip.doubleClicked, 0);
    QTest::mouseDClick(strip.window, Qt::LeftButton);
    EXPECT_EQ(strip.doubleClicked, 1);

    SetSlideMode(true);
    QTest::mouseDClick(strip.window, Qt::LeftButton);
    EXPECT_EQ(strip.doubleClicked, 1);
    const CStringArray messages = strip.host.user.Messages();
    ASSERT_EQ(messages.GetSize(), 1);
    EXPECT_EQ(messages[0], "スライドモード中はコメントの編集ができません。");
}

// The margin covers the left edge; the text, which begins behind it, is whole.
TEST(CommentWindow, PaintsTextOnWhite)
{
    Strip strip;
    const QImage image = strip.window->grab().toImage();
    EXPECT_NE(image.pixelColor(2, 15), QColor(Qt::white));
    EXPECT_EQ(image.pixelColor(140, 15), QColor(Qt::white));
    int dark = 0;
    for (int x = 9; x < 140; ++x) {
        for (int y = 2; y < 28; ++y) dark += image.pixelColor(x, y).lightness() < 100;
    }
    EXPECT_GT(dark, 100);
}
} // namespace
