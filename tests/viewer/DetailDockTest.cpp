// The dock with the details of the selected photograph, and the setting that it shares with others.

#include "hosts/viewer/SlideShow.h"
#include "items/ToviPhotoCtrlVisualSetting.h"
#include "viewer/ShownFrame.h"
#include "windows/detail/ToviDetailPanel.h"
#include "windows/position/ToviConfirmDlg.h"

#include <QDockWidget>

namespace
{
using Setting = ToviPhotoCtrlVisualSetting;

QDockWidget& Dock(const ShownFrame& shown)
{
    return *shown.frame->findChild<QDockWidget*>(QStringLiteral("detail"));
}

int Stored(const ShownFrame& shown)
{
    return shown.services.profile.GetProfileInt(Setting::VisualSettingSection_,
                                                Setting::VisibleDetail_, -1);
}

TEST(DetailDock, IsThereWhenItIsAskedForAndOnlyThen)
{
    ShownFrame shown;
    ASSERT_TRUE(shown.Open());
    EXPECT_FALSE(Dock(shown).isVisible());
    shown.Press(Qt::Key_D, Qt::ControlModifier);
    EXPECT_TRUE(Dock(shown).isVisible());
    EXPECT_TRUE(shown.Data().GetVisualSetting().GetVisibleDetail());

    shown.Press(Qt::Key_F5);
    EXPECT_FALSE(Dock(shown).isVisible());
    shown.Press(Qt::Key_Escape);
    EXPECT_TRUE(Dock(shown).isVisible()) << "the slide show gives it back";
    EXPECT_TRUE(shown.Data().GetVisualSetting().GetVisibleDetail());

    shown.Start();
    ASSERT_TRUE(shown.Open());
    EXPECT_TRUE(Dock(shown).isVisible()) << "at the next start";
    Dock(shown).close();
    QCoreApplication::processEvents();
    EXPECT_FALSE(shown.Data().GetVisualSetting().GetVisibleDetail());
    EXPECT_EQ(Stored(shown), 100);
    shown.Start();
    ASSERT_TRUE(shown.Open());
    EXPECT_FALSE(Dock(shown).isVisible());
}

TEST(DetailDock, FollowsTheSettingOfOthers)
{
    ShownFrame shown;
    ASSERT_TRUE(shown.Open());
    shown.Press(Qt::Key_D, Qt::ControlModifier);
    for (const bool visible : {false, true}) {
        shown.services.profile.WriteProfileInt(Setting::VisualSettingSection_,
                                               Setting::VisibleDetail_, visible ? 101 : 100);
        EXPECT_TRUE(QTest::qWaitFor([&] { return Dock(shown).isVisible() == visible; }));
    }
}

TEST(PositionCommand, OpensTheWindowOverTheFrame)
{
    ShownFrame shown;
    ASSERT_TRUE(shown.Open());
    shown.Press(Qt::Key_L, Qt::ControlModifier);
    const QPointer<ToviConfirmDlg> dialog = shown.frame->findChild<ToviConfirmDlg*>();
    ASSERT_NE(dialog, nullptr);
    EXPECT_TRUE(dialog->isVisible());
    shown.Press(Qt::Key_W, Qt::ControlModifier);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(dialog.isNull()) << "with the delivery";
}
} // namespace
