#include "support/Labels.h"
#include "support/OpenedSample.h"
#include "windows/list/RowsInSight.h"
#include "windows/page/CellMoves.h"
#include "windows/page/PageArithmetic.h"
#include "windows/page/PageLayout.h"
#include "windows/page/StripPlaces.h"
#include "windows/panel/PanelUpdates.h"
#include "windows/panel/UncheckedSearch.h"

#include <gmock/gmock.h>

namespace
{
using Setting = ToviPhotoCtrlVisualSetting;
using testing::ElementsAre;

constexpr auto four = Setting::DivideFour;
constexpr auto six = Setting::DivideSix;

TEST(PageArithmetic, CountsPages)
{
    const struct
    {
        int photosOnPage, photos, top, page, pages, first;
    } cases[] = {{1, 0, 0, 1, 0, 0}, {1, 7, 6, 7, 7, 6},  {4, 7, 3, 1, 2, 0},
                 {4, 7, 4, 2, 2, 4}, {4, 8, 7, 2, 2, 4},  {6, 7, -1, 1, 2, 0},
                 {0, 7, 5, 1, 1, 0}, {6, 0, 12, 1, 0, 0}, {3, 100000, 99999, 33334, 33334, 99999}};
    for (const auto& expected : cases) {
        PageArithmetic pages;
        pages.SetPhotosOnPage(expected.photosOnPage);
        pages.ResetPageCount(expected.top, expected.photos);
        SCOPED_TRACE(testing::Message() << expected.photosOnPage << " of " << expected.photos
                                        << " at " << expected.top);
        EXPECT_EQ(pages.CurrentPage(), expected.page);
        EXPECT_EQ(pages.TotalPage(), expected.pages);
        EXPECT_EQ(pages.FirstPosition(), expected.first);
        const int top = std::max(0, expected.top);
        EXPECT_EQ(pages.NormalizeTopPhotoId(top, expected.photos), expected.first);
    }
}

/// The position to which \p key leads from \p position of \p photos.
int Destination(MoveKey key, Setting::DivideType mode, int position, int photos)
{
    constexpr int onPage[] = {1, 2, 3, 4, 6};
    PageArithmetic pages;
    pages.SetPhotosOnPage(onPage[mode]);
    pages.ResetPageCount(position, photos);
    const int first = pages.FirstPosition();
    const CellMove move = MoveOnPage(key, {.mode = mode,
                                           .cell = std::max(0, position - first),
                                           .filledCells = std::min(onPage[mode], photos - first),
                                           .page = pages.CurrentPage(),
                                           .pages = pages.TotalPage(),
                                           .position = position,
                                           .photoCount = photos});
    const int to[] = {position,
                      first - onPage[mode],
                      first + onPage[mode],
                      position - 1,
                      position + 1,
                      first + move.cell,
                      first - onPage[mode] + move.cell};
    return to[move.kind];
}

TEST(CellMoves, GoByRowsInTwoColumnsAndElseToTheNeighbour)
{
    using Positions = std::vector<int>;
    const std::tuple<Setting::DivideType, Positions, Positions> cases[] = {
        {Setting::DivideOne, {0, 0, 1}, {1, 2, 2}},
        {Setting::DivideThree, {0, 0, 1, 2}, {1, 2, 3, 3}},
        {four, {0, 2, 0, 1, 3, 4}, {2, 3, 1, 4, 5, 5}},
        {four, {0, 2, 0, 1, 3, 6, 4}, {2, 3, 1, 4, 6, 5, 5}},
        {four, {0, 2, 0, 1, 3, 6, 4, 5}, {2, 3, 1, 4, 6, 7, 5, 7}},
        {six, {0, 0}, {1, 1}},
        {six, {0, 3, 1, 0}, {3, 2, 2, 1}},
        {six, {0, 3, 4, 0, 1, 2, 5}, {3, 4, 5, 1, 2, 6, 6}}};
    for (const auto& [mode, left, right] : cases) {
        const int photos = static_cast<int>(left.size());
        Positions back, forth;
        for (int position = 0; position < photos; ++position) {
            back.push_back(Destination(MoveKey::Left, mode, position, photos));
            forth.push_back(Destination(MoveKey::Right, mode, position, photos));
            EXPECT_EQ(Destination(MoveKey::Up, mode, position, photos), std::max(0, position - 1));
            EXPECT_EQ(Destination(MoveKey::Down, mode, position, photos),
                      std::min(photos - 1, position + 1));
        }
        EXPECT_EQ(back, left) << photos << " in " << mode;
        EXPECT_EQ(forth, right) << photos << " in " << mode;
        EXPECT_EQ(Destination(MoveKey::Right, mode, -1, 0), -1);
    }
    using enum CellMove::Kind;
    EXPECT_EQ(MoveOnList(MoveKey::Left, 4, 4, 7), PreviousPhoto);
    EXPECT_EQ(MoveOnList(MoveKey::Right, 3, 3, 7), NextPhoto);
    EXPECT_EQ(MoveOnList(MoveKey::Left, 4, 3, 7), Nothing) << "the list itself has moved";
    EXPECT_EQ(MoveOnList(MoveKey::Left, 0, 0, 7), Nothing);
    EXPECT_EQ(MoveOnList(MoveKey::Right, 6, 6, 7), Nothing);
}

TEST(PageLayout, GivesWhatDoesNotDivideToLaterCells)
{
    EXPECT_THAT(LayOutPage(201, 101, 2, 3),
                ElementsAre(CellPlace{0, 0, 100, 33}, CellPlace{0, 35, 100, 33},
                            CellPlace{0, 70, 100, 31}, CellPlace{102, 0, 99, 33},
                            CellPlace{102, 35, 99, 33}, CellPlace{102, 70, 99, 31}));
    for (const CellPlace& place : LayOutPage(1, 1, 2, 3))
        EXPECT_TRUE(place.width >= 0 && place.height >= 0);
}

TEST(StripPlaces, LieOverTheThumbnailsInSight)
{
    EXPECT_EQ(StripPlaceOnItem({20, 40, 174, 198}), (CellPlace{32, 145, 150, 30}));
    EXPECT_TRUE(IsItemInSight({0, 0, 166, 198}, 100, 100));
    EXPECT_TRUE(IsItemInSight({-100, -100, 166, 198}, 100, 100));
    EXPECT_FALSE(IsItemInSight({0, 100, 166, 198}, 100, 100));
    EXPECT_FALSE(IsItemInSight({0, -198, 166, 197}, 100, 100));

    // Four items to a line of 200 pixels, scrolled down by 25,000 lines and a half.
    int asked = 0;
    const auto placeOf = [&asked](int row) {
        ++asked;
        return CellPlace{row % 4 * 170, row / 4 * 200 - 5000100, 166, 198};
    };
    EXPECT_EQ(RowsInSight(1000000, 450, placeOf), (RowRange{100000, 100012}));
    EXPECT_LT(asked, 100);
    EXPECT_EQ(RowsInSight(8, 450, placeOf), (RowRange{8, 8}));
}

TEST(PanelUpdates, BuildAnewOnlyWhatSettingsChange)
{
    using Change = void (*)(Setting&);
    constexpr SettingChange rebuild{.rebuild = true}, nothing;
    constexpr auto thumbnails = Setting::DivideThumbnails;
    const Change toFour = [](Setting& now) { now.SetDivType(four); };
    const Change noComments = [](Setting& now) { now.SetVisibleComment(false); };
    const Change noInformation = [](Setting& now) { now.SetImageTextArrange(Setting::TextHidden); };
    const Change noDetail = [](Setting& now) { now.SetVisibleDetail(false); };
    const Change title = [](Setting& now) { now.SetTitleShowType(Setting::TitleFileName); };
    const Change check = [](Setting& now) { now.SetDoEditCheck(true); };
    const Change items = [](Setting& now) {
        now.GetItemShowSettings().Add("工種", true, 1, GradeRequired, InfoDelivery);
    };
    const struct
    {
        const char* what;
        Setting::DivideType mode;
        std::vector<Change> changes;
        SettingChange expected;
    } cases[] = {{"nothing", six, {}, rebuild},
                 {"another mode", six, {toFour, noInformation}, rebuild},
                 {"comments", six, {noComments}, {.toggleStrips = true}},
                 {"comments", thumbnails, {noComments}, rebuild},
                 {"comments", Setting::DivideList, {noComments}, rebuild},
                 {"information", Setting::DivideOne, {noInformation}, {.layOutCells = true}},
                 {"information", thumbnails, {noInformation}, nothing},
                 {"detail", six, {noDetail}, nothing},
                 {"detail and items", six, {noDetail, items}, {.refillCells = true}},
                 {"detail and title", six, {noDetail, title}, rebuild},
                 {"comments and tamper check", six, {noComments, check}, rebuild}};
    for (const auto& expected : cases) {
        Setting before;
        before.SetDivType(expected.mode);
        Setting now = before;
        for (const Change change : expected.changes) change(now);
        EXPECT_EQ(ChangeOf(before, now, false), expected.expected)
            << expected.what << " in " << expected.mode;
        EXPECT_EQ(ChangeOf(before, now, true), rebuild) << expected.what;
    }
}

TEST(UncheckedSearch, GoesRoundOnce)
{
    const OpenedSample sample(DeliveryBuilder({.photos = 4, .drawings = 0, .images = false}));
    ToviData& data = *sample.document;
    EXPECT_EQ(NextUnchecked(data, -1), 0);
    for (const int checked : {0, 1, 3}) PasteLabel(data, data.GetPhotoIndex(checked), LabelOk);
    EXPECT_EQ(NextUnchecked(data, 2), 2);
    PasteLabel(data, data.GetPhotoIndex(2), LabelFree);
    EXPECT_EQ(NextUnchecked(data, 3), 2) << "that label checks nothing";
    PasteLabel(data, data.GetPhotoIndex(2), LabelNg3);
    EXPECT_EQ(NextUnchecked(data, 0), -1);
    EXPECT_EQ(NextUnchecked(ToviData(), -1), -1);
}
} // namespace
