#include "platform/controls/WenToolBarCtrl.h"
#include "platform/text/QtText.h"
#include "support/Labels.h"
#include "support/OpenedSample.h"
#include "windows/list/PhotoListContent.h"
#include "windows/list/ToviPhotoListCtrl.h"
#include "windows/loader/FileLoader.h"

#include <gmock/gmock.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QHeaderView>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>
#include <QTreeView>

#include <map>
#include <set>

namespace
{
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using Look = GaluListCtrl::Look;

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
        const std::vector<ListColumn> columns = shown.Columns();
        const auto found = std::ranges::find(columns, title, &ListColumn::title);
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

TEST(PhotoListContent, PutsWhatTellsAVerdictInFrontAndSortsByIt)
{
    Content content;
    for (ToviItemShowSetting& item : content.setting.GetItemShowSettings()) {
        item.Bold(item.title == "写真タイトル" || item.title == "シリアル番号" ||
                  item.title == "ファイルサイズ");
    }
    const auto titles = [&content] {
        CString all;
        for (const ListColumn& column : content.shown.Columns()) all += column.title + " ";
        return all;
    };
    EXPECT_EQ(titles(), "付箋 コメント シリアル番号 ファイル名 写真タイトル ファイルサイズ ");
    PasteLabel(content.document, whole, LabelNg1);
    PasteLabel(content.document, whole, LabelFree);
    EXPECT_EQ(content.shown.LabelNames(content.Row(whole)), "NG1 追記、任意 印刷");
    EXPECT_TRUE(content.Text("ファイル名").ends_with(".JPG"));

    for (const auto& order : {std::pair(0, true), std::pair(0, false)}) {
        EXPECT_TRUE(content.shown.ChangeOrder(0));
        EXPECT_EQ(content.shown.Order(), order);
    }
    EXPECT_TRUE(content.shown.ChangeOrder(0));
    EXPECT_EQ(content.shown.Order().first, -1) << "a third click brings the tree's order back";
    EXPECT_FALSE(content.shown.ChangeOrder(5)) << "files would have to be read";

    ListColumnMemory::SetShown("シリアル番号", false);
    EXPECT_EQ(titles(), "付箋 コメント ファイル名 シリアル番号 写真タイトル ファイルサイズ ");
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
    std::vector<ListColumn> Columns() override
    {
        return {{ListColumn::Labels, "付箋", "付箋"},
                {ListColumn::Item, "写真番号", "写真番号"},
                {ListColumn::Fact, "備考"}};
    }
    std::pair<int, bool> Order() override { return {-1, true}; }
    bool ChangeOrder(int column) override { return column == 1; }
    LabelSet Labels(int row) override { return LabelSet(static_cast<unsigned long>(row)); }
    CString LabelNames(int row) override { return Ask(row); }
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
        EXPECT_FALSE(shown.Floaty()->isEnabled());
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
        shown.Told();
        shown.Key(Qt::Key_Right);
        EXPECT_THAT(shown.Told(), IsEmpty()) << "at the last item";
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
        EXPECT_THAT(click(Qt::LeftButton, {700, 400}), IsEmpty()) << "beside the items";
        EXPECT_THAT(click(Qt::RightButton, {700, 400}), Not(Contains("right -1")));
    }
    ShownList shown(Look::Icon, 40, 2);
    shown.Told();
    shown.Key(Qt::Key_Right);
    EXPECT_THAT(shown.Told(), ElementsAre("selected 3", "key from 2", "scrolled 0"));
    shown.Key(Qt::Key_Return);
    EXPECT_THAT(shown.Told(), Contains("double 3"));
}

TEST(PhotoList, CoversNoRowByTheLabels)
{
    for (const Look look : {Look::Icon, Look::Report}) {
        ShownList shown(look, 400);
        EXPECT_TRUE(shown.Floaty()->isEnabled());
        const QRect rows(shown.Viewport()->mapTo(&shown.window, QPoint()),
                         shown.Viewport()->size());
        const QRect bar(shown.Floaty()->mapTo(&shown.window, QPoint()), shown.Floaty()->size());
        EXPECT_FALSE(rows.intersects(bar));
        EXPECT_LE(bar.bottom(), shown.list->geometry().bottom());
        shown.list->EnableFloaty(false);
        EXPECT_FALSE(shown.Floaty()->isEnabled());
    }
}

TEST(PhotoList, FitsColumnsUnlessTheUserHasGivenThemAWidth)
{
    const TestHost host;
    ShownList shown(Look::Report);
    auto* const header = qobject_cast<QTreeView*>(shown.list->View())->header();
    const int fitted = shown.list->GetColumnWidth(1);
    EXPECT_NE(fitted, 80);
    const QPoint edge(header->sectionPosition(1) + fitted - 1, header->height() / 2);
    QTest::mousePress(header->viewport(), Qt::LeftButton, {}, edge);
    QMouseEvent drag(QEvent::MouseMove, edge + QPoint(33, 0), header->mapToGlobal(edge),
                     Qt::LeftButton, Qt::LeftButton, {});
    QApplication::sendEvent(header->viewport(), &drag);
    QTest::mouseRelease(header->viewport(), Qt::LeftButton, {}, edge + QPoint(33, 0));
    shown.Setup();
    EXPECT_EQ(shown.list->GetColumnWidth(1), fitted + 33);
    EXPECT_EQ(ShownList(Look::Report).list->GetColumnWidth(1), fitted + 33);
    EXPECT_FALSE(ListColumnMemory::Width("備考"));

    const QSignalSpy ordered(shown.list, &ToviPhotoListCtrl::OrderChanged);
    for (const int column : {1, 2}) {
        const QPoint middle(header->sectionPosition(column) + 5, header->height() / 2);
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, middle);
    }
    EXPECT_EQ(ordered.size(), 1) << "by the second there is no order";
}

TEST(PhotoList, TellsOfTheFloatysButtonsByMouseAndKey)
{
    ShownList shown(Look::Icon);
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
    shown.list->EnableFloaty(false);
    EXPECT_TRUE(shown.list->View()->hasFocus());
}
} // namespace
