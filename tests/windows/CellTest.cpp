#include "support/OpenedSample.h"
#include "windows/cell/CellLayout.h"
#include "windows/cell/InfoRows.h"
#include "windows/cell/ItemColours.h"

#include <gmock/gmock.h>

#include <ostream>
#include <set>

void PrintTo(const CellPlace& place, std::ostream* out)
{
    *out << place.x << ' ' << place.y << ' ' << place.width << ' ' << place.height;
}

namespace
{
using Rows = std::vector<std::vector<CString>>;

TEST(CellLayout, GivesThePlateTheBottomAndThePhotographTheRest)
{
    const struct
    {
        int width, height, arrange;
        bool hasStrip;
        CellPlace image, information, plate;
    } cases[] = {
        {640, 480, 0, false, {0, 0, 640, 453}, {}, {0, 453, 640, 27}},
        {640, 480, 1, true, {0, 30, 373, 423}, {373, 0, 267, 453}, {0, 453, 640, 27}},
        {640, 480, 2, true, {0, 30, 0, 0}, {}, {0, 453, 640, 27}},
        {100, 40, 1, true, {0, 30, 58, 0}, {58, 0, 42, 13}, {0, 13, 100, 27}},
        {50, 20, 0, false, {0, 0, 50, 0}, {}, {0, -7, 50, 27}},
    };
    for (const auto& test : cases) {
        const CellLayout layout = LayOutCell(
            test.width, test.height,
            static_cast<ToviPhotoCtrlVisualSetting::ImageTextArrange>(test.arrange), test.hasStrip);
        EXPECT_EQ(layout.image, test.image) << test.width << ' ' << test.arrange;
        EXPECT_EQ(layout.information, test.information) << test.width << ' ' << test.arrange;
        EXPECT_EQ(layout.plate, test.plate) << test.width << ' ' << test.arrange;
    }
}

TEST(PlateLayout, CutsNoneOffAndLeavesATitleRoom)
{
    for (const int width : {640, 331, 180, 100}) {
        SCOPED_TRACE(width);
        const PlateLayout layout = LayOutPlate(width, CellLayout::plateHeight, 21);
        int right = layout.titleWidth;
        EXPECT_GE(right, width > 300 ? 80 : 0);
        for (const CellPlace& button : layout.buttons) {
            EXPECT_EQ(button.x, right);
            right += button.width;
        }
        EXPECT_GE(layout.buttons[0].width, std::min(24, (width - 43) / 6));
        EXPECT_EQ(layout.photoMark.x, right);
        EXPECT_EQ(layout.checkMark.x + 21, width - 1);
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

    using Widths = std::pair<int, int>;
    EXPECT_EQ(InfoColumnWidths(261, true, true), Widths(130, 131));
    EXPECT_EQ(InfoColumnWidths(61, true, true), Widths(60, 60));
    EXPECT_EQ(InfoColumnWidths(261, false, false), Widths(0, 131));
    EXPECT_EQ(InfoColumnWidths(261, false, true), Widths(0, 43));
}

TEST(ItemColours, TellTheKindsOfItemsApart)
{
    const OpenedSample sample(DeliveryBuilder({.photos = 1, .images = false}));
    ToviItemShowSettings settings;
    settings.Add("ファイル名", true, 0, GradeOptional, InfoFile);
    settings.Add("Fナンバー", true, 0, GradeOptional, InfoExif);
    settings.Add("写真タイトル", true, 0, GradeOptional, InfoExif);
    ItemColours colours;
    colours.AddDefinitions(*sample.document->GetItemDef());
    const auto required = colours.Find("写真タイトル");
    colours.AddShowSettings(settings);
    EXPECT_EQ(colours.Find("写真タイトル"), required) << "its definition goes first";
    std::set<unsigned long> found;
    for (const char* title : {"写真タイトル", "工種", "請負者説明文", "ファイル名", "Fナンバー"})
        found.insert(colours.Find(title).value());
    EXPECT_EQ(found.size(), 5u);
    EXPECT_EQ(colours.Find("不明"), std::nullopt);
}
} // namespace
