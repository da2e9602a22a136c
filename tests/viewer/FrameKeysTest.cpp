// The main window's keys, slide mode, and what it remembers.

#include "hosts/viewer/SlideShow.h"
#include "platform/controls/LumImgWnd.h"
#include "platform/store/FileProfileStore.h"
#include "review/SlideMode.h"
#include "support/Texts.h"
#include "viewer/ShownFrame.h"
#include "windows/cell/ToviLabelButton.h"
#include "windows/cell/ToviNamePlate.h"
#include "windows/cell/ToviSpiCtrl.h"
#include "windows/cell/ToviSpiListCtrl.h"
#include "windows/list/ToviPhotoListCtrl.h"
#include "windows/panel/ToviPopUpMenu.h"

#include <QAbstractItemView>
#include <QDockWidget>
#include <QLineEdit>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTreeWidget>

namespace
{
using Setting = ToviPhotoCtrlVisualSetting;
using testing::ElementsAre;

/// The numbers of the labels that are pasted.
CString LabelsOf(const ToviPhoto& photo)
{
    CString labels;
    for (unsigned int label = 0; label < labelCount; ++label) {
        if (photo.IsLabelPasted(label)) labels += std::to_string(label);
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
        const std::pair<int, const char*> steps[] = {
            {Qt::Key_O, "0"},    {Qt::Key_1, "1"},   {Qt::Key_2, "12"},   {Qt::Key_3, "123"},
            {Qt::Key_F, "1235"}, {Qt::Key_F, "123"}, {Qt::Key_Delete, ""}};
        for (const auto& [key, labels] : steps) {
            shown.Press(key);
            EXPECT_EQ(LabelsOf(photo), labels) << key;
        }
        shown.Press(Qt::Key_O);
        const int selected = shown.Selected();
        shown.Press(Qt::Key_N);
        EXPECT_EQ(shown.Selected(), selected + 1);
    }
    shown.Panel().AllPhotoAllLabelRemove();
}

TEST(FrameKeys, MoveFromTheFirstPhotographOnWhereverTheUserHasClicked)
{
    ShownFrame shown;
    ASSERT_TRUE(shown.frame->OpenDelivery(shown.temp.Path("delivery"), std::nullopt));
    for (const bool isAgain : {false, true}) {
        shown.Press(Qt::Key_PageDown);
        EXPECT_GT(shown.Selected(), 0) << "right after opening";
        if (isAgain) break;
        shown.frame->findChild<QTreeWidget*>()->setFocus();
        ASSERT_TRUE(shown.frame->OpenDelivery(shown.temp.Path("delivery"), std::nullopt));
    }
    const auto cell = [&shown] {
        return shown.Panel().findChildren<ToviSpiCtrl*>()[shown.Panel().GetSelectIndexInPage()];
    };
    const auto view = [&](QAbstractItemView* list) { return list->viewport(); };
    const std::pair<const char*, std::function<QWidget*()>> places[] = {
        {"picture", [&] { return cell()->findChild<LumImgWnd*>(); }},
        {"plate", [&] { return cell()->findChild<ToviNamePlate*>(); }},
        {"items", [&] { return view(cell()->findChild<ToviSpiListCtrl*>()->View()); }},
        {"a label", [&] { return cell()->findChild<ToviNamePlate*>()->Button(LabelFree); }},
        {"list", [&] { return view(shown.Panel().findChild<ToviPhotoListCtrl*>()->View()); }}};
    for (int mode = Qt::Key_1; mode <= Qt::Key_7; ++mode) {
        shown.Press(mode, Qt::ControlModifier);
        for (const auto& [name, place] : places) {
            const bool isOfList = CString(name) == "list";
            if (isOfList != (mode >= Qt::Key_6)) continue;
            SCOPED_TRACE(testing::Message() << name << " in mode " << mode - Qt::Key_0);
            shown.Press(Qt::Key_Home);
            QTest::mouseClick(place(), Qt::LeftButton, {}, {6, 6});
            std::vector<int> way;
            for (const int key : {Qt::Key_End, Qt::Key_Home, Qt::Key_Space, Qt::Key_Down,
                                  Qt::Key_Up, Qt::Key_Backspace}) {
                shown.Press(key);
                way.push_back(shown.Selected());
            }
            const int below = mode == Qt::Key_6 ? way[3] : 2;
            EXPECT_THAT(way, ElementsAre(7, 0, 1, below, 1, 0));
        }
    }
    shown.Data().SetCheckStatusChanged(false);
}

TEST(FrameKeys, ScrollTheItemsForWhoCameByTab)
{
    ShownFrame shown;
    ASSERT_TRUE(shown.Open());
    shown.Press(Qt::Key_1, Qt::ControlModifier);
    shown.Panel().findChild<ToviSpiListCtrl*>()->View()->setFocus(Qt::TabFocusReason);
    for (const int key : {Qt::Key_Down, Qt::Key_End, Qt::Key_Home, Qt::Key_Space}) {
        shown.Press(key);
        EXPECT_EQ(shown.Selected(), 0) << key;
    }
    shown.Press(Qt::Key_Down, Qt::ControlModifier);
    EXPECT_EQ(shown.Selected(), 1);
}

TEST(FrameKeys, GoOnToTheNextPhotographByChoice)
{
    ShownFrame shown;
    ASSERT_TRUE(shown.Open());
    shown.Command("付けたら次へ")->trigger();
    struct Step
    {
        const char* what;
        int key;
        Qt::KeyboardModifiers held;
        int selected;
    };
    const Step steps[] = {{"pasted", Qt::Key_O, {}, 1},
                          {"pasted with Shift", Qt::Key_1, Qt::ShiftModifier, 1},
                          {"removed", Qt::Key_1, {}, 1},
                          {"on the keypad", Qt::Key_2, Qt::KeypadModifier, 2},
                          {"all removed", Qt::Key_Delete, {}, 2}};
    for (const Step& step : steps) {
        shown.Press(step.key, step.held);
        EXPECT_EQ(shown.Selected(), step.selected) << step.what;
    }
    EXPECT_EQ(shown.Data().CountLabel(LabelOk) + shown.Data().CountLabel(LabelNg2), 2);
    shown.Data().SetCheckStatusChanged(false);
    shown.Start();
    EXPECT_TRUE(shown.Command("付けたら次へ")->isChecked()) << "remembered";
}

TEST(FrameKeys, TellOfThemselvesOnceAndOfferThoseOfBefore)
{
    ShownFrame shown;
    auto* notice = shown.frame->findChild<QWidget*>(QStringLiteral("keyNotice"));
    shown.frame->TellKeys();
    ASSERT_TRUE(notice->isVisible());
    notice->findChildren<QPushButton*>().front()->click();
    EXPECT_FALSE(notice->isVisible());
    for (int start = 0; start < 2; ++start) {
        ASSERT_TRUE(shown.Open());
        shown.Press(Qt::Key_4);
        EXPECT_EQ(LabelsOf(*shown.Data().GetPhoto(0)), "3");
        EXPECT_TRUE(shown.Command("NG3 不鮮明")->toolTip().contains(u'4'));
        shown.Press(Qt::Key_0);
        EXPECT_EQ(LabelsOf(*shown.Data().GetPhoto(0)), "");
        shown.Data().SetCheckStatusChanged(false);
        shown.Start();
        shown.frame->TellKeys();
        notice = shown.frame->findChild<QWidget*>(QStringLiteral("keyNotice"));
        EXPECT_FALSE(notice->isVisible());
    }
}

/// The mnemonics that two entries of \p menu, or of one below it, share.
QStringList SharedMnemonics(const QList<QAction*>& entries)
{
    QStringList shared;
    QString known;
    for (const QAction* entry : entries) {
        const QString key = QKeySequence::mnemonic(entry->text()).toString();
        if (!key.isEmpty() && known.contains(key)) shared << entry->text();
        known += key + QLatin1Char(' ');
        if (entry->menu() != nullptr) shared << SharedMnemonics(entry->menu()->actions());
    }
    return shared;
}

TEST(FrameKeys, OpenEachEntryOfAMenuByItsOwn)
{
    ShownFrame shown;
    ASSERT_TRUE(shown.Open());
    EXPECT_THAT(SharedMnemonics(shown.frame->menuBar()->actions()), testing::IsEmpty());
    shown.Panel().ShowPopUpMenu();
    const auto* const menu = shown.Panel().findChild<ToviPopUpMenu*>();
    EXPECT_THAT(SharedMnemonics(menu->actions()), testing::IsEmpty());
}

TEST(FrameKeys, BelongToWhoeverTypes)
{
    ShownFrame shown;
    ASSERT_TRUE(shown.Open());
    QLineEdit edit(shown.frame.get());
    edit.show();
    edit.setFocus();
    QTest::keyClicks(&edit, QStringLiteral("12345c0nof? Z"));
    EXPECT_EQ(edit.text(), QStringLiteral("12345c0nof? Z"));
    EXPECT_EQ(LabelsOf(*shown.Data().GetPhoto(0)), "");
    shown.Panel().setFocus();
    shown.Press(Qt::Key_C);
    auto* const comment = shown.Comment();
    ASSERT_TRUE(comment->hasFocus());
    QTest::keyClicks(comment, QStringLiteral("1N0c"));
    // An input method shows what it has not decided yet, and then gives it.
    QInputMethodEvent composing(QStringLiteral("ほそう"), {});
    QApplication::sendEvent(comment, &composing);
    shown.Press(Qt::Key_Return);
    QInputMethodEvent decided;
    decided.setCommitString(QStringLiteral("舗装2"));
    QApplication::sendEvent(comment, &decided);
    shown.Press(Qt::Key_Return);
    ASSERT_TRUE(comment->isVisible()) << "the key has ended the conversion alone";
    QTest::qWait(100);
    shown.Press(Qt::Key_Return);
    EXPECT_FALSE(comment->isVisible());
    EXPECT_EQ(shown.Data().GetPhoto(0)->GetComment(), "1N0c舗装2");
    EXPECT_EQ(LabelsOf(*shown.Data().GetPhoto(0)), "4");
    EXPECT_EQ(shown.Selected(), 0);
    shown.Press(Qt::Key_N);
    EXPECT_EQ(shown.Selected(), 1) << "the keys are the photographs' again";
    shown.Panel().AllPhotoAllLabelRemove();
}

TEST(FrameComments, AreTakenFromTheTextsUsedBefore)
{
    ShownFrame shown;
    ASSERT_TRUE(shown.Open());
    const auto comment = [&shown](int photo) { return shown.Data().GetPhoto(photo)->GetComment(); };
    const auto select = [&shown](int photo) {
        shown.Panel().OperateFirstPhoto();
        while (shown.Selected() < photo) shown.Panel().OperateNextPhoto();
    };
    const auto write = [&](int photo, const char* text) {
        select(photo);
        shown.Press(Qt::Key_C);
        QTest::keyClicks(shown.Comment(), QString::fromUtf8(text));
    };
    for (const char* text : {"one", "two", "one", "   "}) {
        write(0, text);
        shown.Press(Qt::Key_Return);
        shown.Press(Qt::Key_Delete);
    }
    write(1, "1");
    shown.Press(Qt::Key_2, Qt::AltModifier);
    shown.Press(Qt::Key_9, Qt::AltModifier);
    shown.Press(Qt::Key_Return);
    EXPECT_EQ(comment(1), "1two") << "the latest is the first";
    write(2, "given up");
    shown.Press(Qt::Key_Escape);
    EXPECT_EQ(comment(2), "");
    EXPECT_EQ(LabelsOf(*shown.Data().GetPhoto(2)), "");

    write(2, "");
    select(3);
    QTest::keyClicks(shown.Comment(), QStringLiteral("three"));
    select(4);
    shown.Panel().setFocus();
    shown.Press(Qt::Key_C);
    EXPECT_EQ(comment(3), "three") << "what was begun isn't lost";
    QTest::keyClicks(shown.Comment(), QStringLiteral("four"));
    shown.OnDialogs({[](QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); }});
    shown.Press(Qt::Key_W, Qt::ControlModifier);
    EXPECT_EQ(comment(4), "four") << "asked about with the rest";
    EXPECT_FALSE(shown.Comment()->isVisible());
    shown.Data().SetCheckStatusChanged(false);
}

TEST(FrameKeys, ReachTheCommandsThoughAnInputMethodIsOn)
{
    ShownFrame shown;
    ASSERT_TRUE(shown.Open());
    for (const int mode : {Qt::Key_5, Qt::Key_6, Qt::Key_7}) {
        shown.Press(mode, Qt::ControlModifier);
        for (QWidget* widget : shown.frame->findChildren<QWidget*>()) {
            if (!widget->isVisible() || widget->focusPolicy() == Qt::NoFocus) continue;
            widget->setFocus();
            const QWidget* const focus = QApplication::focusWidget();
            EXPECT_FALSE(focus->testAttribute(Qt::WA_InputMethodEnabled))
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
    for (const int mode : {Qt::Key_6, Qt::Key_5}) {
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

        shown.Press(Qt::Key_O);
        EXPECT_EQ(LabelsOf(*shown.Data().GetPhoto(7)), "0");
        shown.Press(Qt::Key_Delete);
        shown.services.user.calls.clear();
        shown.Press(Qt::Key_C);
        EXPECT_THAT(Texts(shown.services.user.Messages()), testing::SizeIs(1));
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

TEST(SlideMode, IsPagedAndLeftWithTheMouse)
{
    ShownFrame shown;
    ASSERT_TRUE(shown.Open());
    shown.Press(Qt::Key_F5);
    const auto* const bar = shown.frame->findChild<QWidget*>(QStringLiteral("slideBar"));
    const QList<QPushButton*> buttons = bar->findChildren<QPushButton*>();
    const auto number = [bar] { return FromQtText(bar->findChild<QLabel*>()->text()); };
    EXPECT_EQ(number(), "1 / 8");
    for (const auto& [button, tells] : {std::pair(1, "2 / 8"), {1, "3 / 8"}, {0, "2 / 8"}}) {
        QTest::mouseClick(buttons[button], Qt::LeftButton);
        EXPECT_EQ(number(), tells);
    }
    shown.Press(Qt::Key_Right);
    EXPECT_EQ(number(), "3 / 8");
    QTest::mouseClick(buttons[2], Qt::LeftButton);
    EXPECT_FALSE(IsSlideMode() || bar->isVisible());
    EXPECT_TRUE(shown.Panel().isAncestorOf(QApplication::focusWidget()));
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
        EXPECT_EQ(VisibleAround(shown), shown.IsOpen() ? 3 : 2) << what;
    }
}

TEST(MainFrame, RemembersHowItWasLeft)
{
    ShownFrame shown;
    ASSERT_TRUE(shown.Open());
    shown.Press(Qt::Key_5, Qt::ControlModifier);
    shown.Press(Qt::Key_M, Qt::ControlModifier);
    const bool comments = shown.Data().GetVisualSetting().GetVisibleComment();
    shown.frame->findChild<QDockWidget*>()->hide();
    for (const int key : {Qt::Key_F5, Qt::Key_Escape}) shown.Press(key);
    shown.frame->resize(900, 600);
    shown.Start();
    EXPECT_EQ(shown.frame->size(), QSize(900, 600));
    EXPECT_FALSE(shown.frame->findChild<QDockWidget*>()->isVisible());
    ASSERT_TRUE(shown.Open());
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
               others.WriteProfileString("ShowSetting", "Items", numbers);
    });
    EXPECT_TRUE(
        QTest::qWaitFor([&] { return shown.Panel().GetVisualSetting().GetDivType() == 3; }));
    EXPECT_EQ(shown.Data().GetPhotoIndex(0), 7) << "the order is not that of the others";
    EXPECT_FALSE(shown.Panel().GetVisualSetting().GetItemShowSettings().IsBold(numbers.c_str()));
    const CString atFirst = shown.Data().Items()[0]->Title();
    others.WriteProfileInt("VisualSetting", "TreeType", 101);
    EXPECT_TRUE(QTest::qWaitFor([&] { return shown.Data().Items()[0]->Title() != atFirst; }));

    // What is set here stands beside what the others set just now.
    others.WriteProfileInt("VisualSetting", "TitleShowType", 101);
    shown.Press(Qt::Key_7, Qt::ControlModifier);
    EXPECT_EQ(others.GetProfileInt("VisualSetting", "DivideType", 0), 106);
    EXPECT_EQ(others.GetProfileInt("VisualSetting", "TitleShowType", 0), 101);
    InstallHostServices({&shown.services.user, &shown.services.profile, "Tovi", {}});
}
} // namespace
