#include "platform/controls/GaluListCtrl.h"
#include "platform/controls/GaluListTable.h"
#include "platform/controls/IconGrid.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QHeaderView>
#include <QPixmap>
#include <QSignalSpy>
#include <QTest>
#include <QTreeView>

#include <memory>
#include <set>

namespace
{
using Look = GaluListCtrl::Look;

/// Many rows, of which it notes the ones that are asked for.
class AskedRows : public QAbstractTableModel
{
public:
    explicit AskedRows(int rowsThere) : rows(rowsThere) {}

    int rowCount(const QModelIndex& parent = QModelIndex()) const override
    {
        return parent.isValid() ? 0 : rows;
    }
    int columnCount(const QModelIndex&) const override { return 3; }
    QVariant data(const QModelIndex& index, int role) const override
    {
        asked.insert(index.row());
        if (role == Qt::DisplayRole) return QStringLiteral("写真 %1").arg(index.row());
        return {};
    }

    int rows;
    mutable std::set<int> asked;
};

std::unique_ptr<GaluListCtrl> Shown(Look look, QAbstractItemModel& model)
{
    auto list = std::make_unique<GaluListCtrl>(look);
    if (look == Look::Icon) list->SetIconSpacing({130, 130}, {154, 162});
    list->SetModel(&model);
    list->resize(500, 400);
    list->show();
    list->setFocus();
    return list;
}

TEST(IconGrid, LeadsWhereTheKeysPoint)
{
    using Move = IconGrid::Move;
    // Three lines: 0 to 2, 3 to 5, 6 and 7.
    const IconGrid grid{8, 3, 2};
    const std::tuple<Move, int, int> cases[] = {
        {Move::Right, 2, 3}, {Move::Right, 7, 7},    {Move::Left, 3, 2},   {Move::Left, 0, 0},
        {Move::Down, 1, 4},  {Move::Down, 5, 7},     {Move::Down, 6, 6},   {Move::Up, 7, 4},
        {Move::Up, 1, 1},    {Move::PageDown, 0, 6}, {Move::PageUp, 7, 1}, {Move::PageDown, 5, 7},
        {Move::Home, 5, 0},  {Move::End, 0, 7},      {Move::Down, -1, 0},
    };
    for (const auto& [move, from, to] : cases)
        EXPECT_EQ(grid.Target(move, from), to) << static_cast<int>(move) << " from " << from;
    EXPECT_EQ(IconGrid{}.Target(Move::End, -1), -1);
}

class GaluListCtrlOfLook : public testing::TestWithParam<Look>
{};

TEST_P(GaluListCtrlOfLook, AsksForWhatIsInSightAlone)
{
    AskedRows model(100'000);
    const auto list = Shown(GetParam(), model);
    const QSignalSpy scrolled(list.get(), &GaluListCtrl::Scrolled);
    list->Select(50'000);
    list->EnsureVisible(50'000);
    EXPECT_EQ(scrolled.size(), 1);
    EXPECT_TRUE(list->View()->viewport()->rect().contains(list->GetItemRect(50'000).center()));
    list->grab();
    QTest::keyClicks(list->View(), "zz1");
    QTest::keyClick(list->View(), Qt::Key_PageDown);
    QTest::keyClick(list->View(), Qt::Key_End);
    list->grab();
    EXPECT_TRUE(model.asked.contains(50'000));
    EXPECT_TRUE(model.asked.contains(99'999));
    EXPECT_LT(model.asked.size(), 200u);
}

TEST_P(GaluListCtrlOfLook, SelectsOneByKeyAndMouseAndTellsOfIt)
{
    AskedRows model(40);
    const auto list = Shown(GetParam(), model);
    const QSignalSpy selected(list.get(), &GaluListCtrl::SelectionChanged);
    const QSignalSpy keys(list.get(), &GaluListCtrl::KeyPressed);
    const QSignalSpy clicked(list.get(), &GaluListCtrl::Clicked);
    const QSignalSpy rightClicked(list.get(), &GaluListCtrl::RightClicked);
    const QSignalSpy doubleClicked(list.get(), &GaluListCtrl::DoubleClicked);
    EXPECT_EQ(list->GetSelected(), -1);
    list->Select(1);
    QTest::keyClick(list->View(), Qt::Key_Home);
    EXPECT_EQ(list->GetSelected(), 0);
    EXPECT_EQ(keys.back(), (QVariantList{int{Qt::Key_Home}, 1}));
    QTest::keyClick(list->View(), Qt::Key_Down);
    EXPECT_EQ(list->GetSelected(), GetParam() == Look::Report ? 1 : 3);
    QTest::keyClick(list->View(), Qt::Key_Return);
    EXPECT_EQ(doubleClicked.back(), QVariantList{list->GetSelected()});

    QWidget* const surface = list->View()->viewport();
    QTest::mouseClick(surface, Qt::LeftButton, {}, list->GetItemRect(2).center());
    EXPECT_EQ(list->GetSelected(), 2);
    EXPECT_EQ(list->GetSelectionMark(), 2);
    EXPECT_EQ(selected.back(), QVariantList{2});
    EXPECT_EQ(clicked.back(), QVariantList{2});
    QTest::mouseClick(surface, Qt::RightButton, {}, list->GetItemRect(1).center());
    EXPECT_EQ(rightClicked.back(), QVariantList{1});
    QTest::mouseDClick(surface, Qt::LeftButton, {}, list->GetItemRect(0).center());
    EXPECT_EQ(doubleClicked.back(), QVariantList{0});
    EXPECT_EQ(clicked.size(), 2) << "a right click is none";
}

INSTANTIATE_TEST_SUITE_P(Both, GaluListCtrlOfLook, testing::Values(Look::Report, Look::Icon));

TEST(GaluListTable, IsShownWithColumnsThatTheUserChanges)
{
    GaluListTable table({{"項目名"}, {"設計値", true}});
    table.SetItems({{"厚さ", "100"}, {"幅"}});
    const auto list = Shown(Look::Report, table);
    const QSignalSpy began(list.get(), &GaluListCtrl::HeaderDragBegan);
    const QSignalSpy ended(list.get(), &GaluListCtrl::HeaderDragEnded);
    list->SetColumnWidth(0, 85);
    EXPECT_EQ(began.size(), 0) << "only the user drags";
    QWidget* const header = static_cast<QTreeView*>(list->View())->header()->viewport();
    QTest::mousePress(header, Qt::LeftButton, {}, {84, 5});
    for (const int x : {95, 105}) {
        QMouseEvent move(QEvent::MouseMove, QPointF(x, 5), header->mapToGlobal(QPointF(x, 5)),
                         Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(header, &move);
    }
    EXPECT_EQ(began.size(), 1);
    EXPECT_EQ(ended.size(), 0);
    QTest::mouseRelease(header, Qt::LeftButton, {}, {105, 5});
    EXPECT_EQ(ended.size(), 1);
    EXPECT_GT(list->GetColumnWidth(0), 85);
    list->SetColumnWidth(0, 0);
    EXPECT_EQ(list->GetColumnWidth(0), 0);

    EXPECT_EQ(table.GetItemText(0, 1), "100");
    EXPECT_EQ(table.GetItemText(1, 1), "") << "a row that is shorter";
    EXPECT_EQ(table.GetItemText(2, 0), "");
    EXPECT_TRUE(table.data(table.index(0, 1), Qt::TextAlignmentRole).toInt() & Qt::AlignRight);
}
} // namespace
