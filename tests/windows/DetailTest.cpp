#include "items/ToviItemManager.h"
#include "items/ToviPhotoCtrlVisualSetting.h"
#include "photos/ToviPhoto.h"
#include "platform/controls/LumImgWnd.h"
#include "platform/text/QtText.h"
#include "review/ToviLabelManager.h"
#include "support/OpenedSample.h"
#include "windows/cell/ToviControlValueTable.h"
#include "windows/cell/ToviSpiListCtrl.h"
#include "windows/detail/DetailPlaces.h"
#include "windows/detail/ToviDetailPanel.h"
#include "windows/detail/ToviImageWnd.h"
#include "windows/loader/FileLoader.h"
#include "windows/loader/PhotoWishes.h"
#include "windows/property/DrawingPages.h"
#include "windows/property/ToviTabBaseWnd.h"
#include "work/Environment.h"

#include <gmock/gmock.h>

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSlider>
#include <QTabBar>
#include <QTest>
#include <QToolBar>

#include <filesystem>

#include <sys/stat.h>

namespace
{
using testing::ElementsAre;

TEST(DetailPlaces, LetTheRightPaneKeepItsWidth)
{
    EXPECT_EQ(FirstPosition(800, 0), 401);
    EXPECT_EQ(FirstPosition(800, 300), 500);
    const struct
    {
        int position;
        int before;
        int now;
        std::optional<int> moved;
    } cases[] = {
        {0, 0, 800, 740},    {400, 0, 800, {}},   {500, 800, 900, 600}, {500, 800, 400, 100},
        {500, 800, 200, 60}, {500, 800, 119, 59}, {700, 640, 650, 590},
    };
    for (const auto& test : cases) {
        EXPECT_EQ(PositionOnResize(test.position, test.before, test.now), test.moved) << test.now;
    }
}

TEST(DrawingPages, StepFromTheFirstToTheLast)
{
    const struct
    {
        DrawingPages pages;
        CString text;
        bool hasPrevious;
        bool hasNext;
    } cases[] = {
        {{0, 0}, "", false, false},
        {{1, 0}, "", false, false},
        {{1, 1}, "", false, false},
        {{1, 3}, "1/3 枚目を表示", false, true},
        {{2, 3}, "2/3 枚目を表示", true, true},
        {{3, 3}, "3/3 枚目を表示", true, false},
    };
    for (const auto& test : cases) {
        EXPECT_EQ(test.pages.Text(), test.text);
        EXPECT_EQ(test.pages.HasPrevious(), test.hasPrevious);
        EXPECT_EQ(test.pages.HasNext(), test.hasNext);
        EXPECT_EQ(test.pages.Stepped(1).index, test.pages.index + (test.hasNext ? 1 : 0));
        EXPECT_EQ(test.pages.Stepped(-1).index, test.pages.index - (test.hasPrevious ? 1 : 0));
    }
}

constexpr const char* drawing = "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"40\" "
                                "height=\"30\"><rect width=\"40\" height=\"30\"/></svg>";

/// The detail panel of a delivery, in a window that isn't shown yet. The photographs have no
/// drawing but those that a test gives them.
struct ShownDetail
{
    explicit ShownDetail(const DeliveryBuilder& builder) : sample(builder)
    {
        SetEnvironment({Registry(work.Path("user.ini"), work.Path("machine.ini")),
                        {"", "", "", "", work.MakeFolder("cache")},
                        before.driveTypeOf});
        sample.document->Load();
        sample.document->SetSelected(sample.document.get(), true);
        window.resize(900, 400);
        panel.Create(&window, 1);
        panel.resize(window.size());
        panel.Attach(sample.document.get());
        Send(ToviData::HintInitialize);
    }
    ~ShownDetail()
    {
        panel.Detach();
        SetEnvironment(before);
    }

    void Show()
    {
        window.show();
        panel.AdjustSplitter();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
        QTest::qWait(0);
    }
    void Send(ToviData::UpdateHint hint) { panel.OnUpdate(nullptr, hint, nullptr); }
    void Select(int photo)
    {
        sample.document->PhotoSelectSetting(photo);
        Send(ToviData::HintPhotoSelected);
        QTest::qWait(0);
    }
    template <class Change>
    void Set(const Change& change)
    {
        ToviPhotoCtrlVisualSetting setting = sample.document->GetVisualSetting();
        change(setting);
        sample.document->SetVisualSetting(setting, false);
        Send(ToviData::HintSettingsChanged);
        QTest::qWait(0);
    }
    /// Of any photograph. Each has facts and pictures of its own in hand.
    bool HasRead(int photo)
    {
        const PhotoWishes of(*sample.document);
        FileLoader& loader = FileLoader::Ours();
        return loader.InHand<Loaded>(of.Facts(sample.Photo(photo)).key) ||
               loader.InHand<Loaded>(of.Full(sample.Photo(photo)).key);
    }

    ToviImageWnd& Image() { return *panel.findChild<ToviImageWnd*>(); }
    ToviTabBaseWnd& Tabs() { return *panel.findChild<ToviTabBaseWnd*>(); }
    template <class Widget>
    Widget* Find(const char* name)
    {
        Widget* found = nullptr;
        for (Widget* widget : panel.findChildren<Widget*>()) {
            const bool isNamed = widget->accessibleName() == QtText(name) ||
                                 widget->property("text").toString() == QtText(name);
            if (isNamed && widget->isVisible()) return widget;
            if (isNamed) found = widget;
        }
        return found;
    }
    void Click(const char* text) { QTest::mouseClick(Find<QPushButton>(text), Qt::LeftButton); }
    CString Field(const char* name) { return FromQtText(Find<QLineEdit>(name)->text()); }
    bool IsNoticeShown()
    {
        for (const QLabel* label : Tabs().findChildren<QLabel*>()) {
            if (label->isVisible() &&
                label->text().contains(QStringLiteral("プレビューできません")))
                return true;
        }
        return false;
    }
    LumImgWnd& Drawing() { return *Find<LumImgWnd>("参考図"); }

    const Environment before = GetEnvironment();
    TempFolder work;
    OpenedSample sample;
    QWidget window;
    ToviDetailPanel panel;
};

TEST(DetailPanel, ReadsNothingWhileItIsOutOfSight)
{
    ShownDetail shown(DeliveryBuilder({.photos = 6, .drawings = 0}));
    for (int photo = 0; photo < 5; ++photo) shown.Select(photo);
    QTest::qWait(20);
    EXPECT_FALSE(shown.Image().IsEnableImage());
    for (int photo = 0; photo < 5; ++photo) EXPECT_FALSE(shown.HasRead(photo)) << photo;

    shown.Set([](auto& setting) { setting.SetVisibleDetail(false); });
    shown.Show();
    EXPECT_FALSE(shown.HasRead(4)) << "the setting hides the panel, too";
    shown.Set([](auto& setting) { setting.SetVisibleDetail(true); });
    EXPECT_TRUE(QTest::qWaitFor([&] { return shown.Image().IsEnableImage(); }));
    EXPECT_TRUE(QTest::qWaitFor([&] { return shown.HasRead(4); }));
    for (int photo = 0; photo < 4; ++photo) EXPECT_FALSE(shown.HasRead(photo)) << photo;

    shown.Send(ToviData::HintDetach);
    EXPECT_FALSE(shown.Image().IsEnableImage());
}

TEST(DetailPanel, TurnsAndLightensThePictureOnShow)
{
    ShownDetail shown(DeliveryBuilder({.photos = 3, .drawings = 0}));
    shown.Show();
    shown.Select(0);
    ToviImageWnd& image = shown.Image();
    ASSERT_TRUE(QTest::qWaitFor([&] { return image.IsEnableImage(); }));
    const LumImgWnd& picture = image.View().Window();
    const double wide = picture.View().Placement().width();
    ASSERT_GT(wide, picture.View().Placement().height());
    const auto tool = [&image](int id) {
        for (QAction* action : image.findChild<QToolBar*>()->actions()) {
            if (action->data().toInt() == id) return action;
        }
        return static_cast<QAction*>(nullptr);
    };
    EXPECT_FALSE(tool(ToviImageWnd::ToolReset)->isEnabled());
    tool(ToviImageWnd::ToolLeft)->trigger();
    EXPECT_LT(picture.View().Placement().width(), picture.View().Placement().height());
    EXPECT_TRUE(tool(ToviImageWnd::ToolReset)->isEnabled());
    auto& slider = *image.findChild<QSlider*>();
    slider.setValue(5);
    shown.Select(1);
    EXPECT_FALSE(image.IsEnableImage()) << "nothing of the photograph before is left";
    EXPECT_FALSE(slider.isEnabled());
    ASSERT_TRUE(QTest::qWaitFor([&] { return image.IsEnableImage(); }));
    EXPECT_EQ(image.View().Rotation(), 0);
    EXPECT_EQ(image.View().Brightness(), 1000);
    EXPECT_TRUE(tool(ToviImageWnd::ToolReset)->isEnabled());
    tool(ToviImageWnd::ToolReset)->trigger();
    EXPECT_EQ(slider.value(), 0);
    EXPECT_EQ(image.View().Brightness(), 0);
    EXPECT_FALSE(tool(ToviImageWnd::ToolReset)->isEnabled());

    tool(ToviImageWnd::ToolInformation)->trigger();
    EXPECT_FALSE(shown.Tabs().isVisible());
    EXPECT_FALSE(shown.sample.document->GetVisualSetting().GetVisibleProperty());
    tool(ToviImageWnd::ToolInformation)->trigger();
    EXPECT_TRUE(shown.Tabs().isVisible());
}

TEST(DetailPanel, DrawsAnSvgPhotographThatCantBeCorrected)
{
    DeliveryBuilder builder({.photos = 2, .drawings = 0});
    builder.Set(1, "写真ファイル名", "P0000002.SVG");
    ShownDetail shown(builder);
    shown.sample.temp.Write("PHOTO/PIC/P0000002.SVG", drawing);
    shown.Show();
    shown.Select(1);
    EXPECT_FALSE(shown.Image().findChild<QSlider*>()->isEnabled());
    EXPECT_TRUE(QTest::qWaitFor([&] {
        for (const LumImgWnd* view : shown.Image().findChildren<LumImgWnd*>()) {
            if (view->isVisible() && view->IsEnableImage()) return true;
        }
        return false;
    }));
    EXPECT_FALSE(shown.Image().IsEnableImage());
    shown.Click("ブラウザで表示");
    ASSERT_EQ(shown.sample.services.user.calls.size(), 1u);
    const CString page = shown.sample.services.user.calls[0].text;
    EXPECT_TRUE(page.ends_with(".htm")) << page;
    EXPECT_TRUE(std::filesystem::exists(page));
}

/// Four drawings: a picture, one that is missing, one of a kind that isn't shown, an SVG one.
ShownDetail WithDrawings()
{
    DeliveryBuilder builder({.photos = 2, .drawings = 0});
    for (const char* name : {"D0000001.JPG", "D0000002.JPG", "D0000003.P21", "D0000004.SVG"}) {
        builder.AddDrawing(0, {{"参考図ファイル名", name}, {"参考図タイトル", "図"}});
    }
    return ShownDetail(builder);
}

TEST(DrawingPane, LeafsThroughTheDrawings)
{
    ShownDetail shown = WithDrawings();
    const TempFolder& temp = shown.sample.temp;
    std::filesystem::remove(temp.Path("PHOTO/DRA/D0000002.JPG"));
    temp.Write("PHOTO/DRA/D0000003.P21", "ISO-10303-21;");
    temp.Write("PHOTO/DRA/D0000004.SVG", drawing);
    shown.Show();
    shown.Select(0);
    shown.Tabs().ShowPage(1);
    ASSERT_TRUE(QTest::qWaitFor([&] { return shown.Drawing().IsEnableImage(); }));
    EXPECT_EQ(shown.Field("参考図の順番"), "1/4 枚目を表示");
    EXPECT_EQ(shown.Field("参考図のファイル名"), "D0000001.JPG");

    shown.Click("次へ");
    EXPECT_TRUE(QTest::qWaitFor([&] { return shown.Field("参考図の順番") == "1/4 枚目を表示"; }))
        << "the second one is missing";
    EXPECT_FALSE(shown.Drawing().IsEnableImage());
    EXPECT_FALSE(shown.Find<QPushButton>("参考図を別アプリケーションで起動")->isEnabled());
    EXPECT_FALSE(shown.IsNoticeShown());
    temp.Write("PHOTO/DRA/D0000002.JPG", "no picture");
    shown.Click("次へ");
    EXPECT_TRUE(QTest::qWaitFor([&] { return shown.IsNoticeShown(); }));

    shown.Click("次へ");
    EXPECT_TRUE(QTest::qWaitFor([&] { return shown.IsNoticeShown(); }));
    shown.Click("次へ");
    EXPECT_TRUE(QTest::qWaitFor([&] {
        for (const LumImgWnd* view : shown.Tabs().findChildren<LumImgWnd*>()) {
            if (view->isVisible() && view->IsEnableImage()) return true;
        }
        return false;
    }));
    EXPECT_EQ(shown.Field("参考図の順番"), "4/4 枚目を表示");
    EXPECT_FALSE(shown.Find<QPushButton>("次へ")->isEnabled());

    shown.Select(1);
    EXPECT_EQ(shown.Field("参考図の順番"), "");
    EXPECT_EQ(shown.Field("参考図のファイル名"), "");
    EXPECT_FALSE(shown.Find<QPushButton>("前へ")->isEnabled());
}

TEST(DrawingPane, HandsACopyToOtherProgramsAndNeverTheFile)
{
    ShownDetail shown = WithDrawings();
    const CString delivered = shown.sample.temp.Write("PHOTO/DRA/D0000001.JPG", "a drawing");
    shown.Show();
    shown.Select(0);
    shown.Tabs().ShowPage(1);
    const auto canOpen = [&] {
        return shown.Find<QPushButton>("参考図を別アプリケーションで起動")->isEnabled();
    };
    ASSERT_TRUE(QTest::qWaitFor(canOpen));
    std::vector<CString> opened;
    for (const bool opens : {true, false}) {
        shown.sample.services.user.opensFiles = opens;
        shown.Click("参考図を別アプリケーションで起動");
        for (const auto& call : shown.sample.services.user.calls) {
            if (call.kind == ScriptedUserInterface::CallKind::OpenFile) opened.push_back(call.text);
        }
        const CString& copy = opened.back();
        EXPECT_NE(copy, delivered);
        EXPECT_TRUE(copy.ends_with("_D0000001.JPG")) << copy;
        struct stat facts;
        ASSERT_EQ(stat(copy.c_str(), &facts), 0);
        EXPECT_EQ(facts.st_mode & 0777, 0400u);
        EXPECT_EQ(facts.st_size, 9);
    }
    ASSERT_EQ(shown.sample.services.user.Messages().GetSize(), 1);
    EXPECT_THAT(shown.sample.services.user.Messages()[0], testing::HasSubstr(opened.back()));

    std::filesystem::remove(delivered);
    std::filesystem::create_symlink("/etc/hostname", delivered);
    shown.Select(1);
    shown.Select(0);
    ASSERT_TRUE(QTest::qWaitFor([] { return FileLoader::Ours().IsIdle(); }));
    EXPECT_FALSE(canOpen()) << "a link that leads out of the delivery";
}

TEST(PropertyDialog, ShowsTheValuesAsTheyCanBe)
{
    DeliveryBuilder builder({.photos = 2, .drawings = 0, .images = false});
    builder.Set(0, "施工管理値", "幅:設計値 100・実測値 98・差 -2");
    builder.Set(1, "施工管理値", "幅:1・2");
    ShownDetail shown(builder);
    shown.Show();
    const auto& table = *shown.panel.findChild<ToviControlValueTable*>();
    shown.Select(0);
    EXPECT_EQ(table.GetItemCount(), 1);
    EXPECT_TRUE(table.isVisible());
    shown.Select(1);
    EXPECT_FALSE(table.isVisible());
    EXPECT_TRUE(shown.Find<QPlainTextEdit>("施工管理値")->isVisible());
    const auto& list = *shown.panel.findChild<ToviSpiListCtrl*>();
    EXPECT_GT(list.GetItemCount(), 5);

    ToviItemManager items = *shown.sample.document->GetItemManager();
    for (auto& item : items.GetItemShowSettings()) item.bold = item.title == "写真タイトル";
    shown.sample.document->SetManager(*shown.sample.document->GetLabelManager(), items, true);
    shown.Set([](auto&) {});
    EXPECT_EQ(list.GetItemCount(), 1);
    EXPECT_FALSE(shown.Find<QPlainTextEdit>("施工管理値")->isVisible());
}
} // namespace
