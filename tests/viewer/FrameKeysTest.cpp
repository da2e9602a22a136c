// The main window's keys, slide mode, and what it remembers.

#include "hosts/viewer/SlideShow.h"
#include "platform/store/FileProfileStore.h"
#include "review/SlideMode.h"
#include "review/ToviLabelManager.h"
#include "support/Texts.h"
#include "viewer/ShownFrame.h"

#include <QDockWidget>
#include <QLineEdit>
#include <QMenuBar>
#include <QPlainTextEdit>

namespace
{
using Setting = ToviPhotoCtrlVisualSetting;
using testing::ElementsAre;
using testing::IsEmpty;

std::vector<unsigned int> LabelsOf(const ToviPhoto& photo)
{
    std::vector<unsigned int> labels;
    for (unsigned int label = 0; label < labelCount; ++label) {
        if (photo.IsLabelPasted(label)) labels.push_back(label);
    }
    return labels;
}

TEST(FrameKeys, LabelTheSelectedPhotographInEveryMode)
{
    ShownFrame shown;
    ASSERT_TRUE(shown.Open());
    for (int mode = Qt::Key_1; mode <= Qt::Key_7; ++mode) {
        SCOPED_TRACE(mode - Qt::Key_0);
        shown.Press(mode, Qt::ControlModifier);
        shown.Panel().setFocus();
        const ToviPhoto& photo = *shown.Data().GetPhoto(shown.Selected());
        const std::pair<int, std::vector<unsigned int>> steps[] = {
            {Qt::Key_1, {LabelOk}},
            {Qt::Key_2, {LabelNg1}},
            {Qt::Key_3, {LabelNg1, LabelNg2}},
            {Qt::Key_4, {LabelNg1, LabelNg2, LabelNg3}},
            {Qt::Key_5, {LabelNg1, LabelNg2, LabelNg3, LabelFree}},
            {Qt::Key_5, {LabelNg1, LabelNg2, LabelNg3}},
            {Qt::Key_0, {}}};
        for (const auto& [key, labels] : steps) {
            shown.Press(key);
            EXPECT_EQ(LabelsOf(photo), labels) << key - Qt::Key_0;
        }
        shown.Press(Qt::Key_1);
        const int selected = shown.Selected();
        shown.Press(Qt::Key_N);
        EXPECT_EQ(shown.Selected(), selected + 1);
    }
    shown.Panel().AllPhotoAllLabelRemove();
}

TEST(FrameKeys, BelongToWhoeverTypes)
{
    ShownFrame shown;
    ASSERT_TRUE(shown.Open());
    QLineEdit edit(shown.frame.get());
    edit.show();
    edit.setFocus();
    QTest::keyClicks(&edit, QStringLiteral("12345c0n"));
    EXPECT_EQ(edit.text(), QStringLiteral("12345c0n"));
    EXPECT_THAT(LabelsOf(*shown.Data().GetPhoto(0)), IsEmpty());
    EXPECT_EQ(shown.Selected(), 0);

    shown.Panel().setFocus();
    shown.OnDialogs({[](QWidget& dialog) {
        auto* const comment = dialog.findChild<QPlainTextEdit*>();
        QTest::keyClicks(comment, QStringLiteral("1N0c"));
        // An input method shows what it has not decided yet, and then gives it.
        QInputMethodEvent composing(QStringLiteral("ほそう"), {});
        QApplication::sendEvent(comment, &composing);
        QInputMethodEvent decided;
        decided.setCommitString(QStringLiteral("舗装2"));
        QApplication::sendEvent(comment, &decided);
        QTest::keyClick(comment, Qt::Key_Return);
    }});
    shown.Press(Qt::Key_C);
    EXPECT_EQ(shown.Data().GetPhoto(0)->GetComment(), "1N0c舗装2");
    EXPECT_THAT(LabelsOf(*shown.Data().GetPhoto(0)), ElementsAre(LabelComment));
    EXPECT_EQ(shown.Selected(), 0);
    shown.Panel().AllPhotoAllLabelRemove();
}

TEST(FrameKeys, ReachTheCommandsThoughAnInputMethodIsOn)
{
    ShownFrame shown;
    ASSERT_TRUE(shown.Open());
    for (int mode = Qt::Key_1; mode <= Qt::Key_7; ++mode) {
        shown.Press(mode, Qt::ControlModifier);
        for (QWidget* widget : shown.frame->findChildren<QWidget*>()) {
            if (!widget->isVisible() || widget->focusPolicy() == Qt::NoFocus) continue;
            widget->setFocus();
            const QWidget* const focus = QApplication::focusWidget();
            ASSERT_NE(focus, nullptr);
            EXPECT_FALSE(focus->testAttribute(Qt::WA_InputMethodEnabled) &&
                         focus->inputMethodQuery(Qt::ImEnabled).toBool())
                << "the keys go to the input method in a " << focus->metaObject()->className();
        }
    }
}

/// What shows around the photographs.
int VisibleAround(const ShownFrame& shown)
{
    int visible = shown.frame->menuBar()->isVisible() + shown.frame->statusBar()->isVisible();
    for (const QDockWidget* dock : shown.frame->findChildren<QDockWidget*>())
        visible += dock->isVisible();
    return visible;
}

TEST(SlideMode, ShowsOnePhotographAtATime)
{
    ShownFrame shown;
    ASSERT_TRUE(shown.Open());
    for (const int mode : {Qt::Key_5, Qt::Key_6, Qt::Key_1}) {
        SCOPED_TRACE(mode - Qt::Key_0);
        shown.Press(mode, Qt::ControlModifier);
        const Setting::DivideType before = shown.Panel().GetVisualSetting().GetDivType();
        shown.Press(Qt::Key_F5);
        EXPECT_TRUE(IsSlideMode());
        EXPECT_TRUE(shown.frame->isFullScreen());
        EXPECT_EQ(VisibleAround(shown), 0);
        EXPECT_EQ(shown.Panel().GetTotalPage(), 8);
        std::vector<int> way;
        for (const int key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Space, Qt::Key_Down,
                              Qt::Key_PageDown, Qt::Key_PageUp, Qt::Key_Backspace, Qt::Key_Up}) {
            shown.Press(key);
            way.push_back(shown.Selected());
        }
        EXPECT_THAT(way, ElementsAre(0, 1, 2, 3, 4, 3, 2, 1));
        for (int step = 0; step < 8; ++step) shown.Press(Qt::Key_Space);
        EXPECT_EQ(shown.Selected(), 7) << "there is nothing behind the last one";

        shown.Press(Qt::Key_1);
        EXPECT_THAT(LabelsOf(*shown.Data().GetPhoto(7)), ElementsAre(LabelOk));
        shown.Press(Qt::Key_0);
        shown.services.user.calls.clear();
        shown.Press(Qt::Key_C);
        EXPECT_THAT(Texts(shown.services.user.Messages()),
                    ElementsAre("スライドモード中はコメントの編集ができません。"));

        shown.Press(Qt::Key_Escape);
        EXPECT_FALSE(IsSlideMode());
        EXPECT_FALSE(shown.frame->isFullScreen());
        EXPECT_EQ(VisibleAround(shown), 3);
        EXPECT_EQ(shown.Panel().GetVisualSetting().GetDivType(), before);
        EXPECT_EQ(shown.Selected(), 7);
        while (shown.Selected() > 0) shown.Panel().OperatePrevPhoto();
    }
    shown.Data().SetCheckStatusChanged(false);
}

TEST(SlideMode, EndsWithWhatLeavesOnePhotograph)
{
    ShownFrame shown;
    const std::pair<const char*, std::function<void()>> ends[] = {
        {"another mode", [&] { shown.Press(Qt::Key_4, Qt::ControlModifier); }},
        {"closed", [&] { shown.Press(Qt::Key_W, Qt::ControlModifier); }},
        {"another", [&] { shown.Open(); }},
        {"the window closed", [&] { shown.Start(); }}};
    for (const auto& [what, end] : ends) {
        ASSERT_TRUE(shown.Open());
        shown.Press(Qt::Key_F5);
        ASSERT_TRUE(IsSlideMode());
        end();
        EXPECT_FALSE(IsSlideMode()) << what;
        EXPECT_FALSE(shown.frame->isFullScreen()) << what;
        EXPECT_EQ(VisibleAround(shown), 3) << what;
    }
}

TEST(MainFrame, RemembersHowItWasLeft)
{
    ShownFrame shown;
    ASSERT_TRUE(shown.Open());
    auto* dock = shown.frame->findChild<QDockWidget*>();
    EXPECT_TRUE(dock->isVisible());
    shown.Press(Qt::Key_5, Qt::ControlModifier);
    shown.Press(Qt::Key_M, Qt::ControlModifier);
    const bool comments = shown.Data().GetVisualSetting().GetVisibleComment();
    dock->hide();
    shown.frame->resize(900, 600);
    shown.Start();
    EXPECT_EQ(shown.frame->size(), QSize(900, 600));
    EXPECT_FALSE(shown.frame->findChild<QDockWidget*>()->isVisible());
    ASSERT_TRUE(shown.Open());
    EXPECT_EQ(shown.Data().GetVisualSetting().GetDivType(), Setting::DivideSix);
    EXPECT_EQ(shown.Panel().GetVisualSetting().GetDivType(), Setting::DivideSix);
    EXPECT_EQ(shown.Data().GetVisualSetting().GetVisibleComment(), comments);

    // The chooser starts above the delivery opened last, and giving it up changes nothing.
    shown.Press(Qt::Key_O, Qt::ControlModifier);
    EXPECT_EQ(shown.services.user.calls.back().text, shown.temp.Path() + "/");
    EXPECT_TRUE(shown.IsOpen());
}
TEST(FrameSettings, FollowWhatOtherProgramsSave)
{
    ShownFrame shown;
    FileProfileStore profile(shown.temp.Path("profile.ini"));
    InstallHostServices({&shown.services.user, &profile, "Tovi", RunningProgramPath()});
    ASSERT_TRUE(shown.Open());
    FileProfileStore others(shown.temp.Path("profile.ini"));
    const CString numbers = "シリアル番号";
    others.WriteTogether([&] {
        return others.WriteProfileInt("VisualSetting", "DivideType", 103) &&
               others.WriteProfileInt("Sort", "ExecSort", 101) &&
               others.WriteProfileInt("Sort", "Ascending", 100) &&
               others.WriteProfileString("Sort", "KeyItem", numbers) &&
               others.WriteProfileString("Label", "Label2", "要確認") &&
               others.WriteProfileString("ShowSetting", "Items", numbers);
    });
    EXPECT_TRUE(
        QTest::qWaitFor([&] { return shown.Panel().GetVisualSetting().GetDivType() == 3; }));
    EXPECT_EQ(shown.Data().GetPhotoIndex(0), 7) << "the order is not that of the others";
    EXPECT_STREQ(shown.Data().GetLabelManager()->GetLabelAttribute(1).GetName(), "要確認");
    const ToviItemShowSettings& items = shown.Panel().GetVisualSetting().GetItemShowSettings();
    EXPECT_FALSE(items.IsBold(numbers.c_str()));
    EXPECT_TRUE(items.IsBold("フラッシュ"));
    const CString atFirst = shown.Data().Items()[0]->Title();
    others.WriteProfileInt("VisualSetting", "TreeType", 101);
    EXPECT_TRUE(QTest::qWaitFor([&] { return shown.Data().Items()[0]->Title() != atFirst; }));

    // What is set here stands beside what the others set just now.
    others.WriteProfileInt("VisualSetting", "TitleShowType", 101);
    shown.Press(Qt::Key_7, Qt::ControlModifier);
    shown.frame->close();
    EXPECT_EQ(others.GetProfileInt("VisualSetting", "DivideType", 0), 106);
    EXPECT_EQ(others.GetProfileInt("VisualSetting", "TitleShowType", 0), 101);
    EXPECT_EQ(others.GetProfileString("Label", "Label2", ""), "要確認");
    EXPECT_EQ(others.GetProfileString("ShowSetting", "Items", ""), numbers);
    EXPECT_EQ(others.GetProfileInt("Sort", "Ascending", 0), 100);
    InstallHostServices({&shown.services.user, &shown.services.profile, "Tovi", {}});
}
} // namespace
