#include "items/ToviItemDef.h"
#include "photos/ToviNode.h"
#include "photos/ToviPhoto.h"
#include "platform/text/QtText.h"
#include "windows/position/DialogPlace.h"
#include "windows/position/PositionTree.h"
#include "windows/position/ToviConfirmDlg.h"
#include "windows/ShownDelivery.h"

#include <QPushButton>
#include <QScreen>
#include <QScrollBar>

namespace
{
using Setting = ToviPhotoCtrlVisualSetting;

/// A delivery of one photograph whose items along the path are \p values; those behind stay away.
OpenedSample Placed(const std::vector<const char*>& values)
{
    constexpr const char* titles[] = {"写真-大分類", "写真区分", "工種", "種別", "細別"};
    DeliveryBuilder builder({.photos = 1, .drawings = 0, .images = false});
    for (std::size_t level = 0; level < std::size(titles); ++level) {
        builder.Set(0, titles[level], level < values.size() ? values[level] : "");
    }
    builder.Set(0, "撮影箇所", values.size() > 5 ? values[5] : "");
    return OpenedSample(builder);
}

CString Joined(const std::optional<CStringArray>& path)
{
    if (!path) return "-";
    CString text;
    for (const CString& title : *path) text += '/' + title;
    return text;
}

TEST(PositionPath, EndsAtTheFirstMissingValue)
{
    const struct
    {
        std::vector<const char*> values;
        CString full;
        CString place;
        CString work;
    } cases[] = {
        {{"工事", "出来形", "A", "a", "x", "No.1"}, "/工事/出来形/A/a/x", "/No.1", "/A/a/x"},
        {{"工事", "", "A", "", "x"}, "/工事", "/【未記入】", "/A"},
        {{"", "出来形", "", "a"}, "/【未記入】", "/【未記入】", "/【未記入】"},
        {{"工事"}, "/工事", "/【未記入】", "-"},
        {{}, "-", "/【未記入】", "-"},
    };
    for (const auto& test : cases) {
        const OpenedSample sample = Placed(test.values);
        const auto path = [&sample](int type) {
            return Joined(PositionPath(*sample.document->GetItemDef(), sample.Photo(0), type));
        };
        EXPECT_EQ(path(Setting::TreeWorkTypeFull), test.full);
        EXPECT_EQ(path(Setting::TreePlace), test.place);
        EXPECT_EQ(path(Setting::TreeWorkType), test.work);
        EXPECT_EQ(path(3), "-");
    }
}

/// root(A(x y(x)) B(z) A(w)), by rows: root 0, A 1, x 2, y 3, x 4, B 5, z 6, A 7, w 8.
PositionTree RepeatingTree()
{
    ToviNode root("root");
    const auto add = [](ToviNode& parent, const char* title) -> ToviNode& {
        auto* const child = new ToviNode(title);
        parent.Add(child);
        return *child;
    };
    ToviNode& first = add(root, "A");
    add(first, "x");
    add(add(first, "y"), "x");
    add(add(root, "B"), "z");
    add(add(root, "A"), "w");
    return PositionTree(root);
}

TEST(PositionTree, IsSearchedDepthFirstThroughTheFollowingSiblingsToo)
{
    const PositionTree tree = RepeatingTree();
    const struct
    {
        CStringArray path;
        int row;
    } cases[] = {
        {{"root"}, 0},
        {{"A"}, 1},
        {{"A", "x"}, 2},
        // Deeper than a child.
        {{"root", "z"}, 6},
        {{"A", "y", "x"}, 4},
        // Beneath a sibling behind.
        {{"A", "z"}, 6},
        {{"A", "A", "w"}, 8},
        // Not in front, and not beneath an uncle.
        {{"B", "x"}, PositionTree::none},
        {{"y", "z"}, PositionTree::none},
        {{"A", "root"}, PositionTree::none},
        {{"A", "?"}, PositionTree::none},
        {{}, PositionTree::none},
    };
    for (const auto& test : cases) EXPECT_EQ(tree.Find(test.path), test.row) << Joined(test.path);
    EXPECT_EQ(PositionTree().Find({"A"}), PositionTree::none);
}

TEST(PositionWindow, ComesUpOnAScreenThatIsThere)
{
    const QList<QRect> screens = {{0, 0, 1280, 800}, {1280, 0, 800, 600}};
    const struct
    {
        QRect stored;
        QRect shown;
    } cases[] = {
        {{0, 0, 0, 0}, {0, 0, 200, 300}},
        {{10, 20, 100, 500}, {10, 20, 200, 300}},
        {{10, 20, 500, 299}, {10, 20, 200, 300}},
        {{-40, -1, 300, 400}, {0, 0, 300, 400}},
        {{1500, 100, 300, 400}, {1500, 100, 300, 400}},
        {{1900, 500, 300, 400}, {1780, 200, 300, 400}},
        {{5000, 5000, 300, 400}, {980, 400, 300, 400}},
        {{1300, 0, 900, 700}, {1280, 0, 800, 600}},
    };
    for (const auto& test : cases) EXPECT_EQ(ShownPlace(test.stored, screens), test.shown);
}

/// The window 写真格納位置の確認 over a panel whose photographs lie at No.0, No.1 and so on.
struct ShownPosition
{
    ShownPosition()
        : shown(
              [] {
                  DeliveryBuilder builder({.photos = 40, .drawings = 0, .images = false});
                  for (int photo = 0; photo < 40; ++photo) {
                      builder.Set(photo, "撮影箇所", Format("No.%d", photo));
                  }
                  return builder;
              }(),
              Setting::DivideFour)
    {
        SetTree(Setting::TreePlace);
    }

    void SetTree(Setting::TreeType type)
    {
        shown.data->BuildTreeNode(type);
        shown.data->SetSelected(shown.data.get(), true);
        shown.Set([type](Setting& setting) { setting.SetTreeType(type); });
    }
    ToviConfirmDlg* Dialog() { return shown.window.findChild<ToviConfirmDlg*>(); }
    CString Marked()
    {
        const auto& tree = *Dialog()->findChild<ToviConfirmTreeCtrl*>();
        return tree.GetMarked() < 0 ? "" : tree.Tree().At(tree.GetMarked()).title;
    }

    ShownDelivery shown;
};

TEST(PositionWindow, FollowsTheSelectionAndOnlyThat)
{
    ShownPosition position;
    ShownDelivery& shown = position.shown;
    shown.panel.ShowConfirmDlg();
    EXPECT_EQ(position.Marked(), "No.0");
    shown.panel.OperateNextPage();
    EXPECT_EQ(position.Marked(), "No.4");

    auto& tree = *position.Dialog()->findChild<ToviConfirmTreeCtrl*>();
    const QRect item = tree.visualRect(tree.indexAt({40, 5}));
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, item.center());
    for (const int key : {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Space}) {
        QTest::keyClick(&tree, static_cast<Qt::Key>(key));
        QTest::keyClick(position.Dialog(), static_cast<Qt::Key>(key));
    }
    ASSERT_NE(position.Dialog(), nullptr);
    EXPECT_TRUE(position.Dialog()->isVisible());
    QTest::keyClick(&tree, Qt::Key_End);
    EXPECT_EQ(tree.verticalScrollBar()->value(), tree.verticalScrollBar()->maximum());
    EXPECT_EQ(position.Marked(), "No.4");
    EXPECT_EQ(shown.Selected(), 4);

    shown.ShowFirst(0);
    EXPECT_EQ(position.Marked(), "") << "with no photograph on show";
    shown.panel.Detach();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(position.Dialog(), nullptr);
}

TEST(PositionWindow, ComesUpAgainWhereItWas)
{
    ShownPosition position;
    ShownDelivery& shown = position.shown;
    shown.panel.ShowConfirmDlg();
    position.Dialog()->setGeometry(50, 60, 260, 340);
    QTest::mouseClick(position.Dialog()->findChild<QPushButton*>(), Qt::LeftButton);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    ASSERT_EQ(position.Dialog(), nullptr);
    shown.panel.ShowConfirmDlg();
    EXPECT_EQ(position.Dialog()->geometry(), QRect(50, 60, 260, 340));

    position.SetTree(Setting::TreeWorkTypeFull);
    const QPointer<ToviConfirmDlg> before = position.Dialog();
    shown.panel.ShowConfirmDlg();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(before.isNull()) << "another tree takes another window";
    ASSERT_NE(position.Dialog(), nullptr);

    {
        ToviMpiPanel other;
    }
    EXPECT_EQ(shown.services.profile.GetProfileInt("ConfirmDialog", "DialogPosX", -1), -1);
    shown.panel.Detach();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    {
        PositionWindow last;
        last.Show(*shown.data, &shown.window);
        shown.window.findChild<ToviConfirmDlg*>()->resize(210, 310);
        shown.window.findChild<ToviConfirmDlg*>()->move(70, 80);
    }
    EXPECT_EQ(shown.services.profile.GetProfileInt("ConfirmDialog", "DialogPosX", -1), 170);
    EXPECT_EQ(shown.services.profile.GetProfileInt("ConfirmDialog", "DialogHeight", -1), 410);
}
} // namespace
