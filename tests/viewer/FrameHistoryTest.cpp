// Undo and redo in the main window.

#include "support/Controls.h"
#include "support/Labels.h"
#include "viewer/ShownFrame.h"
#include "windows/extraction/SearchField.h"
#include "windows/extraction/ToviExtractionWindow.h"
#include "windows/trees/ToviFolderTreePanel.h"
#include "windows/trees/ToviLabelTreePanel.h"
#include "windows/zoom/ToviMultiDlg.h"

#include <QAbstractButton>
#include <QMenuBar>
#include <QTabWidget>
#include <QTreeWidget>

namespace
{
using testing::ElementsAre;
using testing::HasSubstr;

/// The texts of the menu 編集.
std::vector<CString> EditMenu(const ShownFrame& shown)
{
    QCoreApplication::processEvents();
    std::vector<CString> texts;
    for (const QAction* menu : shown.frame->menuBar()->actions()) {
        if (!menu->text().startsWith(QStringLiteral("編集"))) continue;
        for (const QAction* action : menu->menu()->actions()) {
            texts.push_back((action->isEnabled() ? "" : "-") + FromQtText(action->text()));
        }
    }
    return texts;
}

void Undo(const ShownFrame& shown)
{
    shown.Press(Qt::Key_Z, Qt::ControlModifier);
}

void Redo(const ShownFrame& shown)
{
    shown.Press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
}

TEST(FrameHistory, TakesBackWhatAKeyDid)
{
    ShownFrame shown;
    ASSERT_TRUE(shown.Open());
    EXPECT_THAT(EditMenu(shown), ElementsAre("-元に戻す(&U)", "-やり直す(&R)"));
    shown.Press(Qt::Key_2);
    const ToviPhoto& photo = *shown.Data().GetSelectedPhoto();
    shown.Press(Qt::Key_N);
    EXPECT_THAT(EditMenu(shown),
                ElementsAre("元に戻す: NG2 を付ける（P0000001.JPG）(&U)", "-やり直す(&R)"));
    Undo(shown);
    EXPECT_FALSE(photo.IsLabelPasted(LabelNg2));
    EXPECT_TRUE(photo.IsSelected()) << "the photograph concerned";
    EXPECT_FALSE(shown.frame->isWindowModified());
    EXPECT_THAT(EditMenu(shown),
                ElementsAre("-元に戻す(&U)", "やり直す: NG2 を付ける（P0000001.JPG）(&R)"));
    EXPECT_THAT(FromQtText(shown.frame->statusBar()->currentMessage()),
                HasSubstr("元に戻しました: NG2"));
    Redo(shown);
    EXPECT_TRUE(photo.IsLabelPasted(LabelNg2));
    EXPECT_TRUE(shown.frame->isWindowModified());
    // Faster than the window shows what can be taken back.
    QTest::keyClick(&shown.Panel(), Qt::Key_Delete);
    QTest::keyClick(&shown.Panel(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(photo.IsLabelPasted(LabelNg2));
    Undo(shown);
}

TEST(FrameHistory, BringsTheSessionBack)
{
    ShownFrame shown;
    ASSERT_TRUE(shown.Open());
    shown.Press(Qt::Key_6, Qt::ControlModifier);
    shown.Panel().ShowPhoto(2);
    shown.Press(Qt::Key_Z);
    shown.Panel().Zooms().All().front()->SetFixed(true);
    shown.Panel().ShowPhoto(3);
    shown.Press(Qt::Key_Z);
    shown.Press(Qt::Key_1);
    for (ToviNode* node = &shown.Data(); node->GetChildNodeCount() > 0;) {
        node = node->GetNode(0);
        shown.Data().SetSelected(node, false);
    }
    QWidget& conditions = *shown.frame->findChild<ToviExtractionWindow*>();
    Control<QAbstractButton>(conditions, 1018).click();
    Control<QAbstractButton>(conditions, 1015).click();
    shown.frame->findChild<SearchField*>()->setText(QStringLiteral("1"));
    QCoreApplication::processEvents();
    const CString node = shown.Data().GetSelectedNode()->GetFullTitlePath("/");
    const int count = shown.Data().GetCurrentPhotoCount();
    const int selected = shown.Data().GetIndexPhotoArray(shown.Selected());
    EXPECT_LT(count, 8);

    const auto startAgain = [&shown] {
        shown.frame.reset();
        shown.Start();
        shown.services.user.options = {0};
        EXPECT_TRUE(shown.Open());
    };
    startAgain();
    EXPECT_EQ(shown.Data().GetSelectedNode()->GetFullTitlePath("/"), node);
    EXPECT_EQ(shown.Data().GetCurrentPhotoCount(), count);
    EXPECT_EQ(shown.Data().GetIndexPhotoArray(shown.Selected()), selected);
    EXPECT_EQ(shown.Data().GetSearchText(), "1");
    EXPECT_TRUE(shown.frame->findChild<ToviExtractionWindow*>()->IsRunning());
    EXPECT_EQ(shown.Panel().GetVisualSetting().GetDivType(),
              ToviPhotoCtrlVisualSetting::DivideThumbnails);
    const auto& zooms = shown.Panel().Zooms().All();
    ASSERT_EQ(zooms.size(), 2u);
    EXPECT_TRUE(zooms[0]->IsFixed() && zooms[0]->GetPhotoIndex() == 2);
    EXPECT_EQ(zooms[1]->GetPhotoIndex(), selected);

    shown.Press(Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
    shown.frame->findChild<QTabWidget*>()->setCurrentIndex(1);
    shown.frame->findChild<ToviLabelTreePanel*>()->SelectLabel(LabelNg1);
    startAgain();
    EXPECT_EQ(shown.Data().GetSelectedIndex(), LabelNg1);
    EXPECT_EQ(shown.Data().GetCurrentPhotoCount(), 1);
    shown.frame.reset();
}

TEST(FrameHistory, ShowsAgainWhatIsHidden)
{
    constexpr int execute = 1015;
    constexpr int ngPhoto = 1017;
    ShownFrame shown;
    ASSERT_TRUE(shown.Open());
    auto* const tree = shown.frame->findChild<ToviFolderTreePanel*>();
    auto* const tabs = shown.frame->findChild<QTabWidget*>();
    QWidget& conditions = *shown.frame->findChild<ToviExtractionWindow*>();
    PasteLabel(shown.Data(), 0, LabelNg1);
    shown.Panel().ShowPhoto(7);
    const std::pair<const char*, std::function<void()>> hiders[] = {
        {"分類の表示に切り替えました", [tabs] { tabs->setCurrentIndex(1); }},
        {"抽出を解除しました",
         [&conditions] {
             Control<QAbstractButton>(conditions, ngPhoto).setChecked(true);
             Control<QAbstractButton>(conditions, ngPhoto).clicked(true);
             Control<QAbstractButton>(conditions, execute).click();
         }},
        {"検索を終えました",
         [&shown] { shown.frame->findChild<SearchField*>()->setText(QStringLiteral("nowhere")); }},
        {"この写真のある分類を表示しました", [&shown, tree] {
             ToviNode* leaf = &shown.Data();
             while (const int count = leaf->GetChildNodeCount()) leaf = leaf->GetNode(count - 1);
             shown.Data().SetSelected(leaf, false);
             tree->ChangeSelCompulsion();
         }}};
    for (const auto& [told, hide] : hiders) {
        SCOPED_TRACE(told);
        shown.Panel().ShowPhoto(7);
        shown.Press(Qt::Key_O);
        hide();
        QCoreApplication::processEvents();
        ASSERT_LT(shown.Data().GetCurrentArray().Find(7), 0);
        Undo(shown);
        EXPECT_THAT(FromQtText(shown.frame->statusBar()->currentMessage()), HasSubstr(told));
        EXPECT_EQ(shown.Data().GetIndexPhotoArray(shown.Selected()), 7);
        EXPECT_FALSE(shown.Data().GetPhotoActualPhotoArray(7)->IsLabelPasted(LabelOk));
    }
    while (shown.frame->isWindowModified()) Undo(shown);
}
} // namespace
