#include "photos/ToviPhotoArray.h"
#include "platform/controls/WenToolBarCtrl.h"
#include "platform/text/QtText.h"
#include "support/Labels.h"
#include "support/OpenedSample.h"
#include "windows/cell/ToviCommentWindow.h"
#include "windows/list/FloatyPlace.h"
#include "windows/list/PhotoListContent.h"
#include "windows/list/ToviPhotoListCtrl.h"

#include <gmock/gmock.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QHeaderView>
#include <QPainter>
#include <QScrollBar>
#include <QTest>
#include <QToolButton>
#include <QTreeView>
#include <QWheelEvent>

#include <filesystem>
#include <map>

namespace
{
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using Look = GaluListCtrl::Look;

TEST(FloatyPlace, IsBelowTheItemOrAboveWhereTheListEnds)
{
    const struct
    {
        const char* what;
        CellPlace item;
        int indent;
        FloatyPlace expected;
    } cases[] = {
        {"below", {20, 10, 174, 198}, 0, {20, 208, true}},
        {"item left of the list", {-30, 10, 174, 198}, 0, {0, 208, true}},
        {"item right of the room", {650, 10, 174, 198}, 0, {560, 208, true}},
        {"bottom edge touched", {20, 262, 174, 198}, 0, {20, 222, true}},
        {"bottom edge just not touched", {20, 261, 174, 198}, 0, {20, 459, true}},
        {"item behind the columns", {-50, 100, 900, 20}, 160, {160, 120, true}},
        {"item above the list", {20, -250, 174, 198}, 0, {20, -290, false}},
        {"item below the list", {20, 540, 174, 198}, 0, {20, 500, false}},
    };
    for (const auto& test : cases) {
        EXPECT_EQ(PlaceFloaty(test.item, test.indent, 240, 40, 800, 500), test.expected)
            << test.what;
    }
    EXPECT_FALSE(PlaceFloaty({0, 0, 174, 198}, 0, 240, 40, 239, 500).shown);
}

/// Photographs of the delivery below.
enum : int
{
    whole = 0,
    narrow = 1,
    broken = 2,
    vector = 3
};

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

    void ShowOnly(const std::vector<CString>& titles)
    {
        for (ToviItemShowSetting& item : setting.GetItemShowSettings()) {
            item.Bold(testing::Value(titles, Contains(item.title)));
        }
    }

    /// The row of a photograph, which the tree has put into an order of its own.
    int Row(int photo) const { return document.GetCurrentArray().Find(photo); }
    CString Text(const CString& title)
    {
        const std::vector<CString> columns = shown.Columns();
        const auto found = std::ranges::find(columns, title);
        return shown.Text(Row(whole), static_cast<int>(found - columns.begin()));
    }
    QImage Tile(int photo, double scale = 1) { return shown.Tile(Row(photo), scale); }

    OpenedSample sample{Delivery()};
    ToviData& document = *sample.document;
    ToviPhotoCtrlVisualSetting setting;
    PhotoListContent shown{setting};
};

TEST(PhotoListContent, TellsItemsFactsAndCommentByColumn)
{
    Content content;
    content.ShowOnly({"撮影年月日", "写真タイトル", "更新日時", "機種名"});
    SetComment(content.document, whole, "再撮影");
    EXPECT_EQ(content.shown.Columns().back(), "コメント");
    EXPECT_EQ(content.Text("写真タイトル"), "着手前");
    EXPECT_EQ(content.Text("撮影年月日"), "2024/04/01");
    EXPECT_EQ(content.Text("コメント"), "再撮影");
    for (const ToviItemShowSetting& item : content.setting.GetItemShowSettings()) {
        if (!item.bold || item.infoType == InfoDelivery) continue;
        EXPECT_NE(content.Text(item.title), "") << item.title;
    }
    for (const int column : {-1, static_cast<int>(content.shown.Columns().size())}) {
        EXPECT_EQ(content.shown.Text(0, column), "") << column;
    }
    content.setting.SetVisibleComment(false);
    EXPECT_THAT(content.shown.Columns(), Not(Contains("コメント")));
    EXPECT_EQ(content.Text("コメント"), "");
    content.ShowOnly({});
    EXPECT_THAT(content.shown.Columns(), IsEmpty());
}

TEST(PhotoListContent, TellsCaptionAndSelectionWhileThereIsADocument)
{
    Content content;
    EXPECT_EQ(content.shown.Caption(content.Row(whole)), "着手前");
    content.setting.SetTitleShowType(ToviPhotoCtrlVisualSetting::TitleFileName);
    EXPECT_THAT(content.shown.Caption(content.Row(whole)), testing::EndsWith(".JPG"));

    for (ToviPhoto* photo : *content.document.GetPhotoDataArray()) photo->Select(false);
    EXPECT_EQ(content.shown.SelectedRow(), -1);
    content.document.GetPhoto(1)->Select(true);
    content.document.GetPhoto(2)->Select(true);
    EXPECT_EQ(content.shown.SelectedRow(), 2);

    content.shown.SetDocument(nullptr);
    EXPECT_EQ(content.shown.Count(), 0);
    EXPECT_EQ(content.shown.SelectedRow(), -1);
    EXPECT_EQ(content.shown.Caption(0) + content.shown.Text(0, 0), "");
    EXPECT_EQ(content.shown.StateImage(0), 0);
    EXPECT_TRUE(content.shown.Tile(0, 1).isNull());
}

TEST(PhotoListContent, ShowsTheStateOfTheCheckOnlyWhereItIsWanted)
{
    const struct
    {
        ToviPhoto::EditJPEGCheckResult result;
        int state;
    } cases[] = {
        {ToviPhoto::EditCheckNone, 0},
        {ToviPhoto::EditCheckUnaltered, 1},
        {ToviPhoto::EditCheckAltered, 2},
        {ToviPhoto::EditCheckUnknown, 0},
    };
    Content content;
    for (const auto& test : cases) {
        // The document itself checks nothing here, so that the result stays.
        content.document.GetPhoto(0)->SetEditChkResult(test.result);
        content.setting.SetDoEditCheck(true);
        EXPECT_EQ(content.shown.StateImage(0), test.state) << test.result;
        content.setting.SetDoEditCheck(false);
        EXPECT_EQ(content.shown.StateImage(0), 0);
    }
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
        ASSERT_EQ(bare.size(), QSize(150, 166) * scale);
        EXPECT_EQ(bare.devicePixelRatio(), scale);
        const auto expectMarkAt = [&](int x, int y) {
            const QRect place(QPoint(x, y) * scale, QSize(16, 16) * scale);
            const QRect drawn = Difference(bare, content.Tile(whole, scale));
            EXPECT_TRUE(place.contains(drawn)) << x << "," << y;
            EXPECT_GT(drawn.width(), 8 * scale);
        };
        for (unsigned int label = 0; label < labelCount; ++label) {
            PasteLabel(content.document, whole, label);
            expectMarkAt(2 + 17 * static_cast<int>(label), 0);
            RemoveLabel(content.document, whole, label);
        }
        for (const auto result : {ToviPhoto::EditCheckUnaltered, ToviPhoto::EditCheckAltered}) {
            photo.SetEditChkResult(result);
            expectMarkAt(132, 147);
        }
        photo.SetEditChkResult(ToviPhoto::EditCheckNone);
    }
}

TEST(ThumbnailTile, TellsAPictureFromOneThatCannotBeShown)
{
    Content content;
    const QRgb green = qRgb(230, 255, 230);
    const QImage unread = content.Tile(broken);
    EXPECT_EQ(unread.pixel(11, 19), green);
    EXPECT_EQ(unread.pixel(138, 146), green);
    EXPECT_NE(unread.pixel(11, 16), green);
    PasteLabel(content.document, broken, LabelOk);
    EXPECT_NE(content.Tile(broken), unread);

    // A picture too narrow to be seen leaves the sheet empty.
    const QImage sheet = content.Tile(narrow);
    EXPECT_EQ(sheet.pixel(75, 83), sheet.pixel(20, 30));
    PasteLabel(content.document, narrow, LabelOk);
    EXPECT_EQ(content.Tile(narrow), sheet);

    ASSERT_THAT(content.sample.Photo(vector).GetImagePath(), testing::EndsWith(".SVG"));
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
    CString Text(int row, int column) override
    {
        return column == 0 ? Ask(row) : "項目" + std::to_string(column);
    }
    int StateImage(int row) override
    {
        Ask(row);
        return row % 3;
    }
    QImage Tile(int row, double scale) override
    {
        ++tilesBuilt[row];
        QImage tile(tileSize * scale, QImage::Format_RGB32);
        tile.fill(Qt::lightGray);
        return tile;
    }

    CString Ask(int row)
    {
        ++asked[row];
        return std::to_string(row);
    }

    int count = 40;
    int selected = -1;
    QSize tileSize = {150, 166};
    std::map<int, int> asked;
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
        if (list->GetLook() == Look::Icon) {
            list->SetupThumbListCtrl();
        } else {
            list->SetupMngmntListCtrl();
        }
    }

    void Connect()
    {
        const auto note = [this](const char* what) {
            return
                [this, what](int number) { told.push_back(what + (" " + std::to_string(number))); };
        };
        QObject::connect(list, &ToviPhotoListCtrl::ItemSelected, list, note("selected"));
        QObject::connect(list, &ToviPhotoListCtrl::ItemDoubleClicked, list, note("double"));
        QObject::connect(list, &ToviPhotoListCtrl::ItemRightClicked, list, note("right"));
        QObject::connect(list, &ToviPhotoListCtrl::FloatyPressed, list,
                         [note](unsigned label) { note("label")(static_cast<int>(label)); });
        QObject::connect(list, &ToviPhotoListCtrl::KeyPressed, list,
                         [note](int, int markBefore) { note("key from")(markBefore); });
        QObject::connect(list, &ToviPhotoListCtrl::SelectionCleared, list,
                         [this] { told.push_back("cleared"); });
        QObject::connect(list, &ToviPhotoListCtrl::Scrolled, list,
                         [this] { told.push_back("scrolled"); });
    }

    std::vector<CString> Told() { return std::exchange(told, {}); }
    QWidget* Viewport() { return list->View()->viewport(); }
    WenToolBarCtrl* Floaty() { return list->findChild<WenToolBarCtrl*>(); }
    QToolButton* Button(int label) { return Floaty()->findChildren<QToolButton*>().at(label + 1); }
    void Key(Qt::Key key) { QTest::keyClick(list->View(), key); }
    void Click(int row, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mouseClick(Viewport(), button, {}, list->GetItemRect(row).center());
    }
    void Wheel(int angle)
    {
        const QPointF at(100, 100);
        QWheelEvent event(at, Viewport()->mapToGlobal(at), {}, {0, angle}, Qt::NoButton, {},
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(Viewport(), &event);
    }
    /// Lets the floaty come now.
    bool BringFloaty()
    {
        list->ScheduleFloaty(true, 0);
        return QTest::qWaitFor([this] { return Floaty()->isVisible(); }, 2000);
    }

    NotingSource source;
    QWidget window;
    ToviPhotoListCtrl* list;
    std::vector<CString> told;
};

TEST(PhotoList, SelectsWhatTheSourceSelectsOrTheFirstItem)
{
    for (const Look look : {Look::Icon, Look::Report}) {
        ShownList shown(look, 400, 300);
        EXPECT_EQ(shown.list->GetSelected(), 300);
        EXPECT_EQ(shown.list->GetSelectionMark(), 300);
        EXPECT_TRUE(shown.Viewport()->rect().contains(shown.list->GetItemRect(300).center()));
        EXPECT_THAT(shown.Told(), Contains("selected 300"));
        shown.source.selected = -1;
        shown.Setup();
        EXPECT_EQ(shown.list->GetSelected(), 0);
        EXPECT_THAT(shown.Told(), Contains("selected 0"));
    }
}

TEST(PhotoList, IsEmptyForAnEmptySet)
{
    for (const Look look : {Look::Icon, Look::Report}) {
        ShownList shown(look, 0);
        EXPECT_EQ(shown.list->GetSelected(), -1);
        EXPECT_THAT(shown.Told(), Not(Contains("selected 0")));
        EXPECT_FALSE(shown.BringFloaty());
        shown.Key(Qt::Key_Right);
        shown.Key(Qt::Key_Menu);
        shown.list->ResetItem(0);
        EXPECT_EQ(shown.list->GetItemRect(0), QRect());
    }
}

TEST(PhotoList, AsksForTheRowsInSightAlone)
{
    for (const Look look : {Look::Icon, Look::Report}) {
        ShownList shown(look, 100'000, 60'000);
        shown.window.grab();
        ASSERT_FALSE(shown.source.asked.empty());
        for (const auto& [row, times] : shown.source.asked) {
            EXPECT_TRUE(shown.list->GetItemRect(row).intersects(shown.Viewport()->rect())) << row;
        }
    }
}

TEST(PhotoList, KeepsTilesUntilTheyAreReset)
{
    ShownList shown(Look::Icon);
    shown.window.grab();
    shown.window.grab();
    EXPECT_EQ(shown.source.tilesBuilt[0], 1);
    shown.list->ResetItem(1);
    shown.window.grab();
    EXPECT_EQ(shown.source.tilesBuilt[0], 1);
    EXPECT_EQ(shown.source.tilesBuilt[1], 2);
    shown.list->UpdateImageList();
    shown.window.grab();
    EXPECT_EQ(shown.source.tilesBuilt[0], 2);
    shown.Setup();
    shown.window.grab();
    EXPECT_EQ(shown.source.tilesBuilt[0], 3);
}

TEST(PhotoList, DropsTheTilesThatWereUsedLongestAgoWhereTheRoomIsFull)
{
    ShownList shown(Look::Icon, 200);
    shown.source.tileSize = QSize(1000, 1000) / shown.list->devicePixelRatioF();
    shown.list->UpdateImageList();
    shown.source.tilesBuilt.clear();
    for (const int row : {0, 10, 20, 30, 40, 50, 60, 70, 60, 0}) {
        shown.list->SelectItem(row);
        shown.window.grab();
    }
    EXPECT_EQ(shown.source.tilesBuilt[0], 2);
    EXPECT_EQ(shown.source.tilesBuilt[60], 1);

    // What could not be made is asked for again.
    shown.source.tileSize = {};
    shown.list->UpdateImageList();
    shown.source.tilesBuilt.clear();
    shown.window.grab();
    shown.window.grab();
    EXPECT_GE(shown.source.tilesBuilt[0], 2);
}

TEST(PhotoList, TellsOfKeysBehindTheMoveAndOfAScroll)
{
    for (const Look look : {Look::Icon, Look::Report}) {
        ShownList shown(look, 40, 39);
        ASSERT_TRUE(shown.BringFloaty());
        shown.Told();
        shown.Key(Qt::Key_Right);
        EXPECT_THAT(shown.Told(), IsEmpty()) << "at the last item";
        EXPECT_TRUE(shown.Floaty()->isVisible());
    }
    ShownList shown(Look::Icon, 40, 2);
    shown.Told();
    shown.Key(Qt::Key_Right);
    EXPECT_THAT(shown.Told(), ElementsAre("selected 3", "key from 2", "scrolled"));
    shown.Key(Qt::Key_Home);
    shown.Told();
    shown.Key(Qt::Key_Left);
    EXPECT_THAT(shown.Told(), ElementsAre("key from 0", "scrolled"));
    shown.Key(Qt::Key_Return);
    EXPECT_THAT(shown.Told(), Contains("double 0"));
}

TEST(PhotoList, TellsOfClicksOnItems)
{
    for (const Look look : {Look::Icon, Look::Report}) {
        ShownList shown(look, 3);
        shown.Told();
        shown.Click(1);
        EXPECT_THAT(shown.Told(), Contains("selected 1"));
        QTest::mouseDClick(shown.Viewport(), Qt::LeftButton, {},
                           shown.list->GetItemRect(1).center());
        EXPECT_THAT(shown.Told(), Contains("double 1"));
        shown.Click(2, Qt::RightButton);
        EXPECT_THAT(shown.Told(), testing::IsSupersetOf({"selected 2", "right 2"}));
        QTest::mouseClick(shown.Viewport(), Qt::LeftButton, {}, {700, 450});
        EXPECT_THAT(shown.Told(), Contains("cleared"));
        QTest::mouseClick(shown.Viewport(), Qt::RightButton, {}, {700, 450});
        EXPECT_THAT(shown.Told(), Not(Contains("right -1")));
    }
}

TEST(PhotoList, FloatsTheLabelsBesideTheSelectedItem)
{
    ShownList icons(Look::Icon);
    ASSERT_TRUE(icons.BringFloaty());
    EXPECT_EQ(icons.Floaty()->pos(), icons.list->GetItemRect(0).bottomLeft() + QPoint(0, 1));
    EXPECT_EQ(icons.Told().back(), "scrolled");
    icons.list->SelectItem(39);
    ASSERT_TRUE(icons.BringFloaty());
    EXPECT_EQ(icons.Floaty()->geometry().bottom(), icons.list->GetItemRect(39).top() - 1);

    ShownList report(Look::Report);
    ASSERT_TRUE(report.BringFloaty());
    EXPECT_EQ(report.Floaty()->pos(), QPoint(160, report.list->GetItemRect(0).bottom() + 1));
}

TEST(PhotoList, HidesTheFloatyWhileSomethingMoves)
{
    ShownList shown(Look::Report, 400);
    auto* const header = qobject_cast<QTreeView*>(shown.list->View())->header()->viewport();
    const QPoint edge(79, header->height() / 2);
    const std::pair<const char*, std::function<void()>> moves[] = {
        {"key", [&] { shown.Key(Qt::Key_Down); }},
        {"wheel", [&] { shown.Wheel(-120); }},
        {"wheel at the end", [&] { shown.Wheel(120 * 100); }},
        {"resize", [&] { shown.list->resize(shown.list->width() - 1, 400); }},
        {"scroll bar",
         [&] {
             QScrollBar* const bar = shown.list->View()->verticalScrollBar();
             QTest::mouseClick(bar, Qt::LeftButton, {}, {bar->width() / 2, bar->height() - 30});
         }},
    };
    for (const auto& [what, move] : moves) {
        shown.list->SelectItem(0);
        ASSERT_TRUE(shown.BringFloaty()) << what;
        move();
        EXPECT_FALSE(shown.Floaty()->isVisible()) << what;
    }
    shown.list->SelectItem(0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return shown.Floaty()->isVisible(); }, 3000));

    QTest::mousePress(header, Qt::LeftButton, {}, edge);
    QMouseEvent drag(QEvent::MouseMove, edge + QPoint(20, 0), header->mapToGlobal(edge),
                     Qt::LeftButton, Qt::LeftButton, {});
    QApplication::sendEvent(header, &drag);
    EXPECT_FALSE(shown.Floaty()->isVisible());
    QTest::mouseRelease(header, Qt::LeftButton, {}, edge + QPoint(20, 0));
    EXPECT_TRUE(QTest::qWaitFor([&] { return shown.Floaty()->isVisible(); }, 3000));
    EXPECT_GT(shown.Floaty()->x(), 165);

    shown.list->ScheduleFloaty(false);
    shown.Key(Qt::Key_Down);
    shown.Wheel(-120);
    EXPECT_FALSE(QTest::qWaitFor([&] { return shown.Floaty()->isVisible(); }, 1200));
}

TEST(PhotoList, TellsOfTheFloatysButtonsByMouseAndKey)
{
    ShownList shown(Look::Icon);
    ASSERT_TRUE(shown.BringFloaty());
    for (int label = 0; label < static_cast<int>(labelCount); ++label) {
        shown.Told();
        QTest::mouseClick(shown.Button(label), Qt::LeftButton);
        EXPECT_THAT(shown.Told(), ElementsAre("label " + std::to_string(label)));
        shown.list->SetButtonState(label, true);
        EXPECT_EQ(shown.Button(label)->isChecked(), label != LabelComment);
        shown.list->SetButtonState(label, false);
        EXPECT_FALSE(shown.Button(label)->isChecked());
    }
    EXPECT_EQ(FromQtText(shown.Button(5)->text()), "ユーザー");
    shown.Told();
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton})
        QTest::mouseClick(shown.Floaty(), button, {}, {1, 1});
    EXPECT_THAT(shown.Told(), IsEmpty()) << "between the buttons";

    QTest::keyClick(shown.list->View(), Qt::Key_Tab);
    ASSERT_TRUE(shown.Button(0)->hasFocus());
    QTest::keyClick(shown.Button(0), Qt::Key_Tab);
    shown.Told();
    QTest::keyClick(shown.Button(1), Qt::Key_Space);
    EXPECT_THAT(shown.Told(), ElementsAre("label 1"));
    shown.list->ScheduleFloaty(false);
    EXPECT_TRUE(shown.list->View()->hasFocus());
}

TEST(PhotoList, SelectsThePhotographOfAClickedStrip)
{
    ShownList shown(Look::Icon);
    ToviCommentWindow strip;
    strip.Create("再撮影", {10, 100, 150, 30}, shown.Viewport(), 1136, 4);
    QObject::connect(&strip, &ToviCommentWindow::Clicked, shown.list,
                     &ToviPhotoListCtrl::OnCommentWindowClicked);
    QObject::connect(&strip, &ToviCommentWindow::DoubleClicked, shown.list,
                     &ToviPhotoListCtrl::OnCommentWindowDblClicked);
    shown.list->View()->clearFocus();
    QTest::mouseClick(&strip, Qt::LeftButton);
    EXPECT_EQ(shown.list->GetSelected(), 4);
    EXPECT_EQ(shown.list->GetSelectionMark(), 4);
    EXPECT_TRUE(shown.list->View()->hasFocus());
    shown.Told();
    QTest::mouseDClick(&strip, Qt::LeftButton);
    EXPECT_THAT(shown.Told(), Contains("label 4"));
}
} // namespace
