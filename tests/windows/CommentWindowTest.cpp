#include "platform/text/QtText.h"
#include "review/SlideMode.h"
#include "support/TestHost.h"
#include "windows/cell/ToviCommentWindow.h"
#include "windows/pictures/FitText.h"

#include <gmock/gmock.h>

#include <QTest>
#include <QTextDocumentFragment>

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
    constexpr const char* numbers = "1 2 3 4 5 6 7 8 9 10 11 12 13 14 15";
    const struct
    {
        const char* text;
        int width;
        const char* shown;
    } rows[] = {
        {"", 100, ""},
        {"確認", 0, ""},
        {"確認", 5, "　..."},
        {"舗装厚を確認", 14, "　舗装厚を確認"},
        {"舗装厚を確認", 13, "　舗装厚..."},
        {"舗装厚を確認", 11, "　舗装..."},
        {"t=5cm不足", 10, "　t=5c..."},
        {numbers, 34, "　1 2 3 4 5 6 7 8 9 10 11 12 1..."},
        {numbers, 37, "　1 2 3 4 5 6 7 8 9 10 11 12 13 14 15"},
        {"\xE7\x94", 3, "　..."},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(FitText(row.text, row.width, Measured), row.shown) << row.text << row.width;
    }
    std::size_t measured = 0;
    const CString shown = FitText(CString(1'000'000, 'x'), 1000, [&measured](const CString& part) {
        measured += part.size();
        return Measured(part);
    });
    EXPECT_EQ(Measured(shown), 999);
    EXPECT_LT(measured, 50'000u) << "little of a long text";
}

TEST(CommentWindow, ShowsWhatFitsAndTellsAll)
{
    const TestHost host;
    QWidget parent;
    parent.resize(400, 100);
    parent.show();
    ToviCommentWindow strip;
    strip.Create("舗装厚を確認", {10, 20, 150, 30}, &parent, 1136, 7);
    const auto toolTip = [&strip] {
        return FromQtText(QTextDocumentFragment::fromHtml(strip.toolTip()).toPlainText());
    };
    EXPECT_EQ(strip.GetPhotoPosition(), 7);
    EXPECT_EQ(strip.GetShownText(), "　舗装厚を確認");
    strip.resize(60, 30);
    EXPECT_THAT(strip.GetShownText(), testing::EndsWith("..."));
    EXPECT_EQ(toolTip(), "舗装厚を確認");
    strip.resize(150, 30);
    strip.SetComment("<b>不足</b>\n再提出");
    EXPECT_EQ(strip.GetShownText(), "　<b>不足</b> 再提出");
    EXPECT_EQ(toolTip(), "<b>不足</b>\n再提出");
    EXPECT_TRUE(strip.isVisible());
    strip.SetComment("");
    strip.ShowIfAny(true);
    EXPECT_FALSE(strip.isVisible()) << "no comment";
}

TEST(CommentWindow, TellsClicks)
{
    TestHost host;
    ToviCommentWindow strip;
    int clicked = 0, doubleClicked = 0;
    QObject::connect(&strip, &ToviCommentWindow::Clicked, &strip, [&] { ++clicked; });
    QObject::connect(&strip, &ToviCommentWindow::DoubleClicked, &strip, [&] { ++doubleClicked; });
    for (const auto button : {Qt::LeftButton, Qt::RightButton}) {
        QTest::mouseClick(&strip, button);
        EXPECT_EQ(clicked, 1);
    }
    for (const auto button : {Qt::RightButton, Qt::LeftButton}) {
        QTest::mouseDClick(&strip, button);
        EXPECT_EQ(doubleClicked, button == Qt::LeftButton);
    }
    SetSlideMode(true);
    QTest::mouseDClick(&strip, Qt::LeftButton);
    SetSlideMode(false);
    EXPECT_EQ(doubleClicked, 1);
    EXPECT_EQ(host.user.Messages().GetSize(), 1);
}
} // namespace
