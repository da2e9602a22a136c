#include "items/ToviPhotoCtrlVisualSetting.h"
#include "platform/text/QtText.h"
#include "review/ToviLabelManager.h"
#include "support/Labels.h"
#include "support/OpenedSample.h"
#include "windows/trees/ToviFolderTreePanel.h"
#include "windows/trees/ToviLabelTreePanel.h"

#include <gmock/gmock.h>

#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QMenu>
#include <QTest>
#include <QToolTip>

#include <optional>

namespace
{
using Setting = ToviPhotoCtrlVisualSetting;
using testing::ElementsAre;

/// Six photographs: A/a1 (two), A/a2, B itself, B/b1, and one that lies on the root.
DeliveryBuilder Works()
{
    constexpr const char* works[][2] = {{"A", "a1"}, {"A", "a1"}, {"A", "a2"},
                                        {"B", ""},   {"B", "b1"}, {"", ""}};
    DeliveryBuilder builder({.photos = 6, .drawings = 0, .images = false});
    for (int photo = 0; photo < 6; ++photo) {
        builder.Set(photo, "工種", works[photo][0]).Set(photo, "種別", works[photo][1]);
        builder.Set(photo, "細別", "").Set(photo, "撮影箇所", photo < 3 ? "No.1" : "No.2");
    }
    return builder;
}

/// The tree below its root, as "A(a1 a2) B": what is closed has no brackets.
std::string Shown(const QTreeWidgetItem* item)
{
    std::string text = FromQtText(item->text(0));
    if (!item->isExpanded() || item->childCount() == 0) return text;
    text += "(";
    for (int child = 0; child < item->childCount(); ++child)
        text += Shown(item->child(child)) + " ";
    text.back() = ')';
    return text;
}

/// A panel in a window on the screen, with such a delivery.
template <typename Panel>
struct ShownPanel
{
    ShownPanel()
    {
        window.resize(300, 400);
        panel->Create(&window, 1);
        panel->resize(window.size());
        panel->Attach(&document);
        window.show();
        window.activateWindow();
        panel->setFocus();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    void Send(int hint)
    {
        panel->OnUpdate(nullptr, static_cast<ToviData::UpdateHint>(hint), nullptr);
    }
    TreeCtrl* Tree() { return panel->GetTreeCtrl(); }
    QTreeWidgetItem* Item(const char* text)
    {
        return Tree()->findItems(QtText(text), Qt::MatchExactly | Qt::MatchRecursive).value(0);
    }
    std::string Selected() { return FromQtText(Tree()->GetSelectedItem()->text(0)); }
    QPoint Place(const char* text)
    {
        return Tree()->visualItemRect(Item(text)).topLeft() + QPoint(25, 8);
    }
    void Click(const char* text, Qt::MouseButton button = Qt::LeftButton,
               Qt::KeyboardModifiers modifiers = {})
    {
        QTest::mouseClick(Tree()->viewport(), button, modifiers, Place(text));
    }
    void Key(Qt::Key key) { QTest::keyClick(Tree(), key); }

    OpenedSample sample{Works()};
    ToviData& document = *sample.document;
    std::vector<int>& hints = sample.host.hints;
    QWidget window;
    Panel* const panel = new Panel;
};

struct FolderPanel : ShownPanel<ToviFolderTreePanel>
{
    FolderPanel()
    {
        Choose(Setting::TreeWorkType);
        Send(0);
        hints.clear();
    }

    /// What the host does when the user wants another tree.
    void Choose(Setting::TreeType type)
    {
        document.GetVisualSetting().SetTreeType(type);
        document.BuildTreeNode(type);
    }
    std::string All()
    {
        QTreeWidgetItem* const root = Tree()->GetRootItem();
        return Shown(root).substr(root->text(0).toUtf8().size());
    }
    /// Chooses \p command in the menu at \p place, or by the menu key. False when no menu opens.
    bool Menu(std::optional<QPoint> place, const char* command)
    {
        const QPoint at = place.value_or(QPoint());
        QContextMenuEvent event(place ? QContextMenuEvent::Mouse : QContextMenuEvent::Keyboard, at,
                                Tree()->viewport()->mapToGlobal(at));
        QApplication::sendEvent(place ? Tree()->viewport() : QApplication::focusWidget(), &event);
        auto* menu = panel->findChild<QMenu*>();
        if (!menu->isVisible()) return false;
        for (QAction* action : menu->actions()) {
            if (action->text() != QtText(command)) continue;
            QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
        }
        return true;
    }
};

constexpr const char* closing = "この項目を閉じる";
constexpr const char* opening = "この項目を開く";

TEST(FolderTreePanel, ShowsTheTreeOpenWithTheSelectedNode)
{
    FolderPanel shown;
    EXPECT_EQ(shown.All(), "(A(a1 a2) B(b1))");
    EXPECT_EQ(shown.Tree()->GetSelectedItem(), shown.Tree()->GetRootItem());
    EXPECT_EQ(shown.Item("a1")->data(0, Qt::AccessibleTextRole).toString(), QtText("a1 2枚"));
    EXPECT_FALSE(shown.Item("A")->data(0, Qt::AccessibleTextRole).isValid()) << "none of its own";
    EXPECT_EQ(shown.Tree()->size(), shown.panel->size());

    shown.document.PhotoSelectSetting(4);
    shown.Choose(Setting::TreePlace);
    shown.Send(7);
    EXPECT_EQ(shown.All(), "(No.1 No.2)");
    EXPECT_EQ(shown.Selected(), "No.2");
    shown.Click("No.1");
    QTreeWidgetItem* const root = shown.Tree()->GetRootItem();
    shown.Send(7);
    EXPECT_EQ(shown.Tree()->GetRootItem(), root) << "the same tree type leaves the tree alone";
    for (const int hint : {1, 8, 11}) {
        shown.Send(0);
        shown.Send(hint);
        EXPECT_EQ(shown.Tree()->topLevelItemCount(), 0) << hint;
        shown.Send(7);
        EXPECT_EQ(shown.Tree()->topLevelItemCount(), 0) << hint;
        EXPECT_FALSE(shown.panel->ChangeSelCompulsion());
    }
}

TEST(FolderTreePanel, SelectsNodesByMouseAndKeys)
{
    FolderPanel shown;
    shown.Click("a1");
    EXPECT_EQ(shown.document.GetCurrentPhotoCount(), 2);
    shown.Key(Qt::Key_Down);
    EXPECT_EQ(shown.Selected(), "a2");
    EXPECT_EQ(shown.document.GetPhotoIndex(0), 2);
    shown.Click("a2", Qt::LeftButton, Qt::ControlModifier);
    shown.Click("B", Qt::RightButton);
    EXPECT_EQ(shown.Selected(), "a2");
    EXPECT_THAT(shown.hints, ElementsAre(2, 2));
    shown.Key(Qt::Key_Home);
    EXPECT_EQ(shown.document.GetSelectedNode(), &shown.document);
    EXPECT_EQ(shown.document.GetCurrentPhotoCount(), 6);

    shown.Click("A");
    shown.document.SetSelected(0);
    EXPECT_EQ(shown.document.GetCurrentPhotoCount(), 0);
    EXPECT_TRUE(shown.panel->OnPreVisible());
    shown.panel->OnPostVisible();
    EXPECT_EQ(shown.document.GetCurrentPhotoCount(), 3) << "it has come into view again";
    EXPECT_EQ(shown.Selected(), "A");
}

TEST(FolderTreePanel, SelectsWhatTheUserClosesOverTheSelection)
{
    FolderPanel shown;
    shown.Click("a2");
    EXPECT_TRUE(shown.Menu(shown.Place("A"), closing));
    EXPECT_EQ(shown.All(), "(A B(b1))");
    EXPECT_EQ(shown.Selected(), "A");
    EXPECT_EQ(shown.document.GetCurrentPhotoCount(), 3);
    EXPECT_THAT(shown.hints, ElementsAre(2, 2));
    shown.Key(Qt::Key_Home);
    EXPECT_TRUE(shown.Menu({}, closing));
    EXPECT_EQ(shown.All(), "");
    EXPECT_TRUE(shown.Menu({}, opening));
    EXPECT_FALSE(shown.Menu(QPoint(150, 380), closing));
    EXPECT_EQ(shown.All(), "(A(a1 a2) B(b1))");

    shown.Click("a2");
    shown.Item("B")->setExpanded(false);
    EXPECT_EQ(shown.Selected(), "a2");
    shown.Item("A")->setExpanded(false);
    EXPECT_EQ(shown.Selected(), "A");
}

TEST(FolderTreePanel, OutlivesItsDocument)
{
    FolderPanel shown;
    shown.Send(9);
    shown.sample.document.reset();
    shown.Click("A");
    shown.panel->grab();
    EXPECT_FALSE(shown.panel->ChangeSelCompulsion());
    shown.panel->OnPostVisible();
    ToviData other;
    shown.panel->Attach(&other);
    shown.Click("a1");
    EXPECT_EQ(other.GetSelectedNode(), nullptr);
}

TEST(FolderTreePanel, TellsTextsThatAreCutOff)
{
    FolderPanel shown;
    const auto toolTipAt = [&shown](const QPoint& place) {
        QHelpEvent event(QEvent::ToolTip, place, shown.Tree()->viewport()->mapToGlobal(place));
        QApplication::sendEvent(shown.Tree()->viewport(), &event);
        return QToolTip::isVisible() ? QToolTip::text() : QString();
    };
    const QPoint place = shown.Place("a1");
    EXPECT_EQ(toolTipAt(place), QString());
    shown.Item("a1")->setText(0, QStringLiteral("<i>").repeated(100));
    EXPECT_TRUE(toolTipAt(place).contains(QStringLiteral("&lt;i&gt;")));
}

TEST(FolderTreePanel, TakesLargeAndDeepTrees)
{
    FolderPanel shown;
    for (int node = 0; node < 10'000; ++node) shown.document.Add(new ToviNode("wide"));
    ToviNode* node = &shown.document;
    for (int level = 0; level < 1000; ++level) {
        auto* child = new ToviNode("deep");
        node->Add(child);
        node = child;
    }
    shown.document.SetSelected(node, false);
    shown.Send(0);
    QTreeWidgetItem* const deepest = shown.Tree()->GetSelectedItem();
    ASSERT_NE(deepest, nullptr);
    const QRect place = shown.Tree()->visualItemRect(deepest);
    EXPECT_TRUE(place.top() >= 0 && place.bottom() <= shown.Tree()->viewport()->height());
    shown.Key(Qt::Key_Home);
    for (const char* command : {closing, opening}) {
        EXPECT_TRUE(shown.Menu({}, command));
        EXPECT_EQ(deepest->parent()->isExpanded(), command == opening);
    }
}

struct LabelPanel : ShownPanel<ToviLabelTreePanel>
{
    LabelPanel()
    {
        for (const int photo : {1, 2, 4}) PasteLabel(document, photo, 1);
        Send(0);
        panel->OnPostVisible();
        hints.clear();
    }

    std::string All() { return Shown(Tree()->GetRootItem()); }
};

TEST(LabelTreePanel, CountsPhotographs)
{
    LabelPanel shown;
    const CString counted = "付箋(OK NG1 追記 <3> NG2 誤記 NG3 不鮮明 コメント 任意 印刷)";
    EXPECT_EQ(shown.All(), counted);
    PasteLabel(shown.document, 0, 0);
    shown.Send(10);
    EXPECT_EQ(shown.All(), counted);
    shown.Send(5);
    EXPECT_EQ(shown.All(), "付箋(OK <1> NG1 追記 <3> NG2 誤記 NG3 不鮮明 コメント 任意 印刷)");
    shown.document.GetLabelManager()->GetLabelAttribute(1).SetName("要確認");
    shown.Send(7);
    EXPECT_EQ(shown.All(), "付箋(OK <1> NG1 要確認 <3> NG2 誤記 NG3 不鮮明 コメント 任意 印刷)");
}

TEST(LabelTreePanel, SelectsLabelsAndFollowsABatchWhileItIsInView)
{
    LabelPanel shown;
    EXPECT_FALSE(shown.panel->IsSelectTreeRoot());
    shown.Click("NG1 追記 <3>");
    EXPECT_EQ(shown.document.GetCurrentPhotoCount(), 3);
    shown.Key(Qt::Key_Down);
    EXPECT_EQ(shown.document.GetSelectedIndex(), 2);
    shown.Key(Qt::Key_Home);
    EXPECT_TRUE(shown.panel->IsSelectTreeRoot());
    EXPECT_EQ(shown.document.GetSelectedIndex(), -1);
    EXPECT_THAT(shown.hints, ElementsAre(2, 2, 2));

    shown.Click("NG1 追記 <3>");
    RemoveLabel(shown.document, 1, 1);
    shown.Send(6);
    EXPECT_EQ(shown.Selected(), "NG1 追記 <2>");
    EXPECT_EQ(shown.document.GetCurrentPhotoCount(), 2);
    RemoveLabel(shown.document, 2, 1);
    shown.panel->hide();
    shown.Send(6);
    EXPECT_EQ(shown.Selected(), "NG1 追記 <1>");
    EXPECT_EQ(shown.document.GetCurrentPhotoCount(), 2);
    shown.panel->OnPostVisible();
    EXPECT_EQ(shown.document.GetCurrentPhotoCount(), 1);
}
} // namespace
