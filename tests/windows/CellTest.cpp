#include "support/OpenedSample.h"
#include "windows/cell/CellChild.h"
#include "windows/cell/CellLayout.h"
#include "windows/cell/InfoRows.h"
#include "windows/cell/ItemColours.h"

#include <gmock/gmock.h>

#include <ostream>

void PrintTo(const CellPlace& place, std::ostream* out)
{
    *out << place.x << ' ' << place.y << ' ' << place.width << ' ' << place.height;
}

namespace
{
using Setting = ToviPhotoCtrlVisualSetting;
using Rows = std::vector<std::vector<CString>>;

TEST(CellLayout, GivesThePlateTheBottomAndThePhotographTheRest)
{
    const struct
    {
        int width;
        int height;
        int arrange;
        bool hasStrip;
        CellPlace image;
        CellPlace information;
        CellPlace plate;
    } cases[] = {
        {640, 480, 0, false, {0, 0, 640, 453}, {}, {0, 453, 640, 27}},
        {640, 480, 0, true, {0, 30, 640, 423}, {}, {0, 453, 640, 27}},
        {640, 480, 1, false, {0, 0, 373, 453}, {373, 0, 267, 453}, {0, 453, 640, 27}},
        {640, 480, 1, true, {0, 30, 373, 423}, {373, 0, 267, 453}, {0, 453, 640, 27}},
        {640, 480, 2, true, {0, 30, 0, 0}, {}, {0, 453, 640, 27}},
        {100, 40, 1, true, {0, 30, 58, 0}, {58, 0, 42, 13}, {0, 13, 100, 27}},
        {50, 20, 0, false, {0, 0, 50, 0}, {}, {0, -7, 50, 27}},
    };
    for (const auto& test : cases) {
        const CellLayout layout =
            LayOutCell(test.width, test.height,
                       static_cast<Setting::ImageTextArrange>(test.arrange), test.hasStrip);
        EXPECT_EQ(layout.image, test.image) << test.arrange << test.hasStrip;
        EXPECT_EQ(layout.information, test.information) << test.arrange << test.hasStrip;
        EXPECT_EQ(layout.plate, test.plate) << test.arrange << test.hasStrip;
    }
}

TEST(PlateLayout, PutsMarksAndButtonsAtTheRightAndCutsNoneOff)
{
    const struct
    {
        int width;
        CellPlace firstButton;
        CellPlace lastButton;
        CellPlace photoMark;
        CellPlace checkMark;
        int titleWidth;
    } cases[] = {
        {640, {309, 1, 48, 25}, {549, 1, 48, 25}, {597, 3, 21, 21}, {618, 3, 21, 21}, 309},
        {331, {84, 1, 34, 25}, {254, 1, 34, 25}, {288, 3, 21, 21}, {309, 3, 21, 21}, 84},
        {180, {5, 1, 22, 25}, {115, 1, 22, 25}, {137, 3, 21, 21}, {158, 3, 21, 21}, 5},
    };
    for (const auto& test : cases) {
        const PlateLayout layout = LayOutPlate(test.width, CellLayout::plateHeight, 21);
        EXPECT_EQ(layout.buttons[LabelOk], test.firstButton);
        EXPECT_EQ(layout.buttons[LabelFree], test.lastButton);
        EXPECT_EQ(layout.photoMark, test.photoMark);
        EXPECT_EQ(layout.checkMark, test.checkMark);
        EXPECT_EQ(layout.titleWidth, test.titleWidth);
    }
}

TEST(CellChild, ThatTakesTheFocusIsTheOneThatIsShown)
{
    const struct
    {
        int asked;
        bool imageOk;
        bool hasValueRows;
        int focused;
    } cases[] = {
        {1001, true, true, 1001},  {1001, false, true, 1095},  {1095, true, true, 1001},
        {1102, true, true, 1102},  {1103, true, true, 1103},   {1105, true, true, 1105},
        {1105, true, false, 1106}, {1106, false, true, 1105},  {1106, true, false, 1106},
        {1200, true, true, 1200},  {1205, false, false, 1205}, {1206, true, true, 0},
        {1107, true, true, 0},     {0, true, true, 0},         {-1, true, true, 0},
    };
    for (const auto& test : cases) {
        EXPECT_EQ(ChildToFocus(test.asked, test.imageOk, test.hasValueRows), test.focused)
            << test.asked;
    }
}

TEST(InfoRows, AreAllValuesOfEachTitleInTheOrderOfTheSettings)
{
    ToviItemShowSettings settings;
    for (const char* title : {"撮影箇所", "施工管理値", "工種", "種別"}) {
        settings.Add(title, true, 0, GradeRequired, InfoDelivery);
    }
    ToviTextPairArray pairs;
    pairs.Add({"工種", "舗装工"});
    pairs.Add({"撮影箇所", "No.1"});
    pairs.Add({"施工管理値", "A:設計値 1"});
    pairs.Add({"撮影箇所", "No.2"});
    EXPECT_EQ(InfoRows(settings, pairs),
              (Rows{{"撮影箇所", "No.1"}, {"撮影箇所", "No.2"}, {"工種", "舗装工"}}));
}

TEST(InfoRows, ShareTheWidthOfTheList)
{
    using Widths = std::pair<int, int>;
    EXPECT_EQ(InfoColumnWidths(261, true, true), Widths(130, 131));
    EXPECT_EQ(InfoColumnWidths(61, true, true), Widths(60, 60));
    EXPECT_EQ(InfoColumnWidths(261, false, false), Widths(0, 131));
    EXPECT_EQ(InfoColumnWidths(261, false, true), Widths(0, 43));
}

TEST(ItemColours, TellTheKindsOfItemsApart)
{
    const OpenedSample sample(DeliveryBuilder({.photos = 1, .images = false}));
    const ToviItemDef& definitions = *sample.document->GetItemDef();
    ToviItemShowSettings settings;
    const int behind = definitions.GetCount();
    settings.Add("ファイル名", true, behind, GradeOptional, InfoFile);
    settings.Add("Fナンバー", true, behind, GradeOptional, InfoExif);
    // Wherever it comes from, a title has the colour of its definition.
    settings.Add("写真タイトル", true, behind, GradeOptional, InfoExif);

    ItemColours colours;
    colours.AddDefinitions(definitions);
    EXPECT_EQ(colours.Find("ファイル名"), std::nullopt);
    colours.AddShowSettings(settings);
    EXPECT_EQ(colours.Find("写真タイトル"), 0x0000FFu);
    EXPECT_EQ(colours.Find("工種"), 0xFF0000u);
    EXPECT_EQ(colours.Find("請負者説明文"), 0x000000u);
    EXPECT_EQ(colours.Find("ファイル名"), 0x008000u);
    EXPECT_EQ(colours.Find("Fナンバー"), 0x2D52A0u);
    EXPECT_EQ(colours.Find("不明"), std::nullopt);
}
} // namespace
