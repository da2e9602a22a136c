#include "platform/controls/WenToolBarCtrl.h"
#include "platform/text/QtText.h"
#include "support/Labels.h"
#include "support/OpenedSample.h"
#include "windows/list/FloatyPlace.h"
#include "windows/list/PhotoListContent.h"
#include "windows/list/ToviPhotoListCtrl.h"
#include "windows/loader/FileLoader.h"

#include <gmock/gmock.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QHeaderView>
#include <QScrollBar>
#include <QTest>
#include <QToolButton>
#include <QTreeView>
#include <QWheelEvent>

#include <map>
#include <set>

namespace
{
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using Look = GaluListCtrl::Look;

TEST(FloatyPlace, IsBelowTheItemOrAboveWhereTheListEnds)
{
    const auto place = [](CellPlace item, int indent = 0) {
        return PlaceFloaty(item, indent, 240, 40, 800, 500);
    };
    EXPECT_EQ(place({-30, 10, 174, 198}), (FloatyPlace{0, 208, true}));
    EXPECT_EQ(place({650, 10, 174, 198}), (FloatyPlace{560, 208, true}));
    EXPECT_EQ(place({20, 262, 174, 198}), (FloatyPlace{20, 222, true})) << "the edge touched";
    EXPECT_EQ(place({20, 261, 174, 198}), (FloatyPlace{20, 459, true}));
    EXPECT_EQ(place({-50, 100, 900, 20}, 160), (FloatyPlace{160, 120, true}));
    EXPECT_FALSE(place({20, -250, 174, 198}).shown);
}

/// Photographs of the delivery below.
constexpr int whole = 0, narrow = 1, broken = 2, vector = 3;

/// A delivery, and what the lists show of it.
struct Content
{
    Content()
    {
        document.Load();
        setting = document.GetVisualSetting();
        shown.SetDocument(&document);
        std::ofstream(sample.Photo(broken).GetImagePath()) << "no picture";
        QImage line(4000, 4, QImage::Format_RGB32);
        line.fill(Qt::red);
        line.save(QtText(sample.Photo(narrow).GetImagePath()), "JPG");
    }

    static DeliveryBuilder Delivery()
    {
        DeliveryBuilder delivery({.photos = 4, .drawings = 0});
        delivery.Set(whole, "写真タイトル", "着手前").Set(whole, "撮影年月日", "2024-04-01");
        return delivery;
    }

    /// The row of a photograph, which the tree has put into an order of its own.
    int Row(int photo) const { return document.GetCurrentArray().Find(photo); }
    CString Text(const CString& title)
    {
        const std::vector<CString> columns = shown.Columns();
        const auto found = std::ranges::find(columns, title);
        Fetch(false);
        return shown.Text(Row(whole), static_cast<int>(found - columns.begin()));
    }
    QImage Tile(int photo, double scale = 1)
    {
        Fetch(true);
        const ListTile tile = shown.Tile(Row(photo), scale);
        EXPECT_TRUE(tile.isWhole);
        return tile.image;
    }
    void Fetch(bool tiles)
    {
        shown.ShowRows({0, shown.Count()}, tiles);
        EXPECT_TRUE(QTest::qWaitFor([] { return FileLoader::Ours().IsIdle(); }));
    }

    OpenedSample sample{Delivery()};
    ToviData& document = *sample.document;
    ToviPhotoCtrlVisualSetting setting;
    PhotoListContent shown{setting};
};

TEST(PhotoListContent, TellsWhatTheSettingsShow)
{
    Content content;
    const std::vector<CString> titles = {"撮影年月日", "写真タイトル", "ファイルサイズ",
                                         "撮影日時"};
    for (ToviItemShowSetting& item : content.setting.GetItemShowSettings())
        item.Bold(testing::Value(titles, Contains(item.title)));
    SetComment(content.document, whole, "再撮影");
    EXPECT_EQ(content.Text("写真タイトル"), "着手前");
    EXPECT_EQ(content.Text("撮影年月日"), "2024/04/01");
    EXPECT_EQ(content.Text("コメント"), "再撮影");
    for (const char* fact : {"ファイルサイズ", "撮影日時"})
        EXPECT_NE(content.Text(fact), "") << fact;
    content.setting.SetVisibleComment(false);
    EXPECT_THAT(content.shown.Columns(), testing::UnorderedElementsAreArray(titles));
    EXPECT_EQ(content.Text("コメント"), "");

    const int row = content.Row(whole);
    EXPECT_EQ(content.shown.Caption(row), "着手前");
    content.setting.SetTitleShowType(ToviPhotoCtrlVisualSetting::TitleFileName);
    EXPECT_THAT(content.shown.Caption(row), testing::EndsWith(".JPG"));
    for (const int position : {1, 2}) content.document.GetPhoto(position)->Select(true);
    EXPECT_EQ(content.shown.SelectedRow(), 2);

    // The document itself checks nothing here, so that the result stays.
    content.document.GetPhoto(row)->SetEditChkResult(ToviPhoto::EditCheckAltered);
    content.setting.SetDoEditCheck(true);
    EXPECT_EQ(content.shown.StateImage(row), 2);
    content.setting.SetDoEditCheck(false);
    EXPECT_EQ(content.shown.StateImage(row), 0);

    content.shown.SetDocument(nullptr);
    EXPECT_EQ(content.shown.Count(), 0);
    EXPECT_EQ(content.shown.Caption(0) + content.shown.Text(0, 0), "");
    EXPECT_TRUE(content.shown.Tile(0, 1).image.isNull());
}

/// The smallest rectangle with all that differs between two tiles, in device pixels.
QRect Difference(const QImage& one, const QImage& other)
{
    QRegion differing;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            if (one.pixel(x, y) != other.pixel(x, y)) differing += QRect(x, y, 1, 1);
        }
    }
    return differing.boundingRect();
}

TEST(ThumbnailTile, HasAFixedPlaceForEachMark)
{
    Content content;
    ToviPhoto& photo = content.sample.Photo(whole);
    for (const int scale : {1, 2}) {
        const QImage bare = content.Tile(whole, scale);
        const auto tileWithMarkAt = [&](int x, int y) {
            const QRect place(QPoint(x, y) * scale, QSize(16, 16) * scale);
            const QImage tile = content.Tile(whole, scale);
            const QRect drawn = Difference(bare, tile);
            EXPECT_TRUE(place.contains(drawn) && drawn.width() > 8 * scale) << x << "," << y;
            return tile;
        };
        for (unsigned int label = 0; label < labelCount; ++label) {
            PasteLabel(content.document, whole, label);
            tileWithMarkAt(2 + 17 * static_cast<int>(label), 0);
            RemoveLabel(content.document, whole, label);
        }
        photo.SetEditChkResult(ToviPhoto::EditCheckUnaltered);
        const QImage unaltered = tileWithMarkAt(132, 147);
        photo.SetEditChkResult(ToviPhoto::EditCheckAltered);
        EXPECT_NE(tileWithMarkAt(132, 147), unaltered);
        photo.SetEditChkResult(ToviPhoto::EditCheckNone);
    }
    // A plate stands for what can't be read; a picture too narrow to be seen leaves the sheet
    // empty.
    const QImage unread = content.Tile(broken);
    const QImage sheet = content.Tile(narrow);
    EXPECT_EQ(Difference(sheet, unread).size(), QSize(130, 130));
    for (const int marked : {broken, narrow}) PasteLabel(content.document, marked, LabelOk);
    EXPECT_NE(content.Tile(broken), unread);
    EXPECT_EQ(content.Tile(narrow), sheet);
    EXPECT_GT(Difference(sheet, content.Tile(vector)).width(), 80);
    EXPECT_NE(content.Tile(vector).pixel(75, 83), unread.pixel(75, 60));
}

/// Rows without a document, which note what is asked of them.
class NotingSource : public PhotoListSource
{
public:
    int Count() const override { return count; }
    std::vector<CString> Columns() const override { return {"写真番号", "写真タイトル", "備考"}; }
    int SelectedRow() const override { return selected; }
    CString Caption(int row) override { return Ask(row); }
    CString Text(int row, int) override { return Ask(row); }
    std::optional<int> StateImage(int row) override { return Ask(row).empty() ? 0 : row % 3; }
    ListTile Tile(int row, double scale) override
    {
        ++tilesBuilt[row];
        QImage tile(tileSize * scale, QImage::Format_RGB32);
        tile.fill(Qt::lightGray);
        return {tile};
    }
    void ShowRows(const RowRange& rows, bool) override { inSight = rows; }

    CString Ask(int row) { return std::to_string(*asked.insert(row).first); }

    int count = 40;
    int selected = -1;
    QSize tileSize = {150, 166};
    RowRange inSight;
    std::set<int> asked;
    std::map<int, int> tilesBuilt;
};

/// A list over such a source, with what it told since it was last asked.
struct ShownList
{
    explicit ShownList(Look look, int count = 40, int selected = -1)
    {
        source.count = count;
        source.selected = selected;
        list = new ToviPhotoListCtrl(look, source, &window);
        Connect();
        list->resize(800, 500);
        window.resize(800, 500);
        window.show();
        window.activateWindow();
        list->setFocus();
        QTest::qWait(0);
        Setup();
    }

    void Setup()
    {
        const bool hasTiles = list->GetLook() == Look::Icon;
        hasTiles ? list->SetupThumbListCtrl() : list->SetupMngmntListCtrl();
    }

    void Connect()
    {
        using List = ToviPhotoListCtrl;
        const auto note = [this](const char* what) {
            return
                [this, what](int number) { told.push_back(what + (" " + std::to_string(number))); };
        };
        QObject::connect(list, &List::ItemSelected, list, note("selected"));
        QObject::connect(list, &List::ItemDoubleClicked, list, note("double"));
        QObject::connect(list, &List::ItemRightClicked, list, note("right"));
        QObject::connect(list, &List::FloatyPressed, list, note("label"));
        QObject::connect(list, &List::KeyPressed, list,
                         [note](int, int markBefore) { note("key from")(markBefore); });
        QObject::connect(list, &List::SelectionCleared, list, [note] { note("cleared")(0); });
        QObject::connect(list, &List::Scrolled, list, [note] { note("scrolled")(0); });
    }

    std::vector<CString> Told() { return std::exchange(told, {}); }
    QWidget* Viewport() { return list->View()->viewport(); }
    WenToolBarCtrl* Floaty() { return list->findChild<WenToolBarCtrl*>(); }
    QToolButton* Button(int label) { return Floaty()->findChildren<QToolButton*>().at(label + 1); }
    void Key(Qt::Key key) { QTest::keyClick(list->View(), key); }
    void WheelUp()
    {
        const QPointF at(100, 100);
        QWheelEvent event(at, Viewport()->mapToGlobal(at), {}, {0, 12000}, Qt::NoButton, {},
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(Viewport(), &event);
    }
    bool HasFloaty(int milliseconds)
    {
        return QTest::qWaitFor([this] { return Floaty()->isVisible(); }, milliseconds);
    }
    /// Lets the floaty come now.
    bool BringFloaty()
    {
        list->ScheduleFloaty(true, 0);
        return HasFloaty(2000);
    }

    NotingSource source;
    QWidget window;
    ToviPhotoListCtrl* list;
    std::vector<CString> told;
};

TEST(PhotoList, ShowsTheSelectedRowOfManyOrTheFirst)
{
    for (const Look look : {Look::Icon, Look::Report}) {
        ShownList shown(look, 100'000, 60'000);
        shown.window.grab();
        EXPECT_EQ(shown.list->GetSelected(), 60'000);
        EXPECT_TRUE(shown.Viewport()->rect().contains(shown.list->GetItemRect(60'000).center()));
        EXPECT_THAT(shown.Told(), Contains("selected 60000"));
        ASSERT_FALSE(shown.source.asked.empty());
        for (const int row : shown.source.asked) {
            EXPECT_TRUE(shown.list->GetItemRect(row).intersects(shown.Viewport()->rect())) << row;
        }
        const RowRange told = shown.source.inSight;
        EXPECT_TRUE(told.first <= 60'000 && 60'000 < told.end && told.end - told.first < 100);
        shown.source.selected = -1;
        shown.Setup();
        shown.window.grab();
        EXPECT_EQ(shown.source.inSight.first, 0);
        EXPECT_EQ(shown.list->GetSelected(), 0);
        EXPECT_THAT(shown.Told(), Contains("selected 0"));
        shown.source.count = 0;
        shown.Setup();
        EXPECT_EQ(shown.list->GetSelected(), -1);
        EXPECT_FALSE(shown.BringFloaty());
        for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Menu}) shown.Key(key);
        EXPECT_THAT(shown.Told(), Not(Contains("selected 0")));
    }
}

TEST(PhotoList, KeepsTilesUntilTheyAreResetOrTheRoomIsFull)
{
    ShownList shown(Look::Icon, 200);
    std::map<int, int>& built = shown.source.tilesBuilt;
    const std::pair<std::function<void()>, std::pair<int, int>> steps[] = {
        {[] {}, {1, 1}},
        {[&] { shown.list->ResetItem(1); }, {1, 2}},
        {[&] { shown.list->UpdateImageList(); }, {2, 3}},
        {[&] { shown.Setup(); }, {3, 4}}};
    shown.window.grab();
    for (const auto& [act, times] : steps) {
        act();
        shown.window.grab();
        EXPECT_EQ(std::pair(built[0], built[1]), times);
    }
    shown.source.tileSize = QSize(500, 500) / shown.list->devicePixelRatioF();
    shown.list->UpdateImageList();
    built.clear();
    for (const int row : {0, 10, 20, 30, 40, 50, 60, 70, 60, 0}) {
        shown.list->SelectItem(row);
        shown.window.grab();
    }
    EXPECT_EQ(built[0], 2) << "the one that was used longest ago goes";
    EXPECT_EQ(built[60], 1);
}

TEST(PhotoList, TellsOfKeysBehindTheMoveAndOfClicks)
{
    for (const Look look : {Look::Icon, Look::Report}) {
        ShownList shown(look, 3, 2);
        ASSERT_TRUE(shown.BringFloaty());
        shown.Told();
        shown.Key(Qt::Key_Right);
        EXPECT_THAT(shown.Told(), IsEmpty()) << "at the last item";
        EXPECT_TRUE(shown.Floaty()->isVisible());
        shown.list->SelectItem(0);
        shown.Told();
        shown.Key(Qt::Key_Left);
        EXPECT_THAT(shown.Told(), Contains("scrolled 0"));
        const auto click = [&shown](Qt::MouseButton button, QPoint at) {
            QTest::mouseClick(shown.Viewport(), button, {}, at);
            return shown.Told();
        };
        EXPECT_THAT(click(Qt::LeftButton, shown.list->GetItemRect(1).center()),
                    Contains("selected 1"));
        EXPECT_THAT(click(Qt::RightButton, shown.list->GetItemRect(2).center()),
                    testing::IsSupersetOf({"selected 2", "right 2"}));
        EXPECT_THAT(click(Qt::LeftButton, {700, 450}), IsEmpty()) << "beside the items";
        EXPECT_THAT(click(Qt::RightButton, {700, 450}), Not(Contains("right -1")));
    }
    ShownList shown(Look::Icon, 40, 2);
    shown.Told();
    shown.Key(Qt::Key_Right);
    EXPECT_THAT(shown.Told(), ElementsAre("selected 3", "key from 2", "scrolled 0"));
    shown.Key(Qt::Key_Return);
    EXPECT_THAT(shown.Told(), Contains("double 3"));
}

TEST(PhotoList, FloatsTheLabelsBesideTheSelectedItem)
{
    ShownList icons(Look::Icon);
    ASSERT_TRUE(icons.BringFloaty());
    EXPECT_EQ(icons.Floaty()->pos(), icons.list->GetItemRect(0).bottomLeft() + QPoint(0, 1));
    icons.list->SelectItem(39);
    ASSERT_TRUE(icons.BringFloaty());
    EXPECT_EQ(icons.Floaty()->geometry().bottom(), icons.list->GetItemRect(39).top() - 1);

    ShownList report(Look::Report, 400);
    ASSERT_TRUE(report.BringFloaty());
    EXPECT_EQ(report.Floaty()->pos(), QPoint(160, report.list->GetItemRect(0).bottom() + 1));
    auto* const header = qobject_cast<QTreeView*>(report.list->View())->header()->viewport();
    const QPoint edge(79, header->height() / 2);
    const std::pair<const char*, std::function<void()>> moves[] = {
        {"key", [&] { report.Key(Qt::Key_Down); }},
        {"wheel at the end", [&] { report.WheelUp(); }},
        {"resize", [&] { report.list->resize(report.list->width() - 1, 400); }},
        {"scroll bar", [&] { report.list->View()->verticalScrollBar()->setValue(3); }},
        {"column",
         [&] {
             QTest::mousePress(header, Qt::LeftButton, {}, edge);
             QMouseEvent drag(QEvent::MouseMove, edge + QPoint(20, 0), header->mapToGlobal(edge),
                              Qt::LeftButton, Qt::LeftButton, {});
             QApplication::sendEvent(header, &drag);
         }},
    };
    for (const auto& [what, move] : moves) {
        report.list->SelectItem(0);
        ASSERT_TRUE(report.BringFloaty()) << what;
        move();
        EXPECT_FALSE(report.Floaty()->isVisible()) << what;
    }
    QTest::mouseRelease(header, Qt::LeftButton, {}, edge + QPoint(20, 0));
    EXPECT_TRUE(report.HasFloaty(3000));
    EXPECT_GT(report.Floaty()->x(), 165);

    report.list->ScheduleFloaty(false);
    report.Key(Qt::Key_Down);
    EXPECT_FALSE(report.HasFloaty(1200));
}

TEST(PhotoList, TellsOfTheFloatysButtonsByMouseAndKey)
{
    ShownList shown(Look::Icon);
    ASSERT_TRUE(shown.BringFloaty());
    for (int label = 0; label < static_cast<int>(labelCount); ++label) {
        shown.Told();
        QTest::mouseClick(shown.Button(label), Qt::LeftButton);
        EXPECT_THAT(shown.Told(), ElementsAre("label " + std::to_string(label)));
        for (const bool pasted : {true, false}) {
            shown.list->SetButtonState(label, pasted);
            EXPECT_EQ(shown.Button(label)->isChecked(), pasted && label != LabelComment);
        }
    }
    QTest::mouseClick(shown.Floaty(), Qt::LeftButton, {}, {1, 1});
    EXPECT_THAT(shown.Told(), IsEmpty()) << "between the buttons";
    QTest::keyClick(shown.list->View(), Qt::Key_Tab);
    QTest::keyClick(shown.Button(0), Qt::Key_Tab);
    shown.Told();
    QTest::keyClick(shown.Button(1), Qt::Key_Space);
    EXPECT_THAT(shown.Told(), ElementsAre("label 1"));
    shown.list->ScheduleFloaty(false);
    EXPECT_TRUE(shown.list->View()->hasFocus());
}
} // namespace
