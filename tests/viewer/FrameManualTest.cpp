// The manual opens at what is said of the window that has the focus.

#include "platform/files/MibFile.h"
#include "viewer/ShownFrame.h"

#include <algorithm>

namespace
{
TEST(FrameManual, OpensAtTheFocusedWindow)
{
    ShownFrame shown;
    std::vector<CString> pages;
    const auto pressIn = [&](QWidget& window) {
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        QTest::keyClick(window.focusWidget() ? window.focusWidget() : &window, Qt::Key_F1);
        const CString path = shown.services.user.calls.back().text;
        EXPECT_TRUE(MibIsFileExist(path)) << path;
        pages.push_back(path.substr(path.rfind('/') + 1));
    };
    pressIn(*shown.frame);
    ASSERT_TRUE(shown.Open());
    pressIn(*shown.frame);
    shown.OnDialogs({[&](QWidget& dialog) {
        pressIn(dialog);
        dialog.close();
    }});
    shown.Command("設定")->trigger();
    shown.Command("写真拡大[情報]")->trigger();
    const auto windows = QApplication::topLevelWidgets();
    const auto zoom = std::ranges::find_if(
        windows, [](const QWidget* each) { return each->inherits("ToviMultiDlg"); });
    ASSERT_NE(zoom, windows.end());
    pressIn(**zoom);
    EXPECT_THAT(pages, testing::ElementsAre("at-open.html", "at-photos.html", "at-settings.html",
                                            "at-zoom.html"));
}
} // namespace
