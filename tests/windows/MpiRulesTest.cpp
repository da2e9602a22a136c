#include "support/Labels.h"
#include "support/OpenedSample.h"
#include "windows/page/CellMoves.h"
#include "windows/page/PageArithmetic.h"
#include "windows/page/PageLayout.h"
#include "windows/page/StripPlaces.h"
#include "windows/panel/LabelMenuItems.h"
#include "windows/panel/PanelUpdates.h"
#include "windows/panel/UncheckedSearch.h"

#include <gmock/gmock.h>

namespace
{
using Setting = ToviPhotoCtrlVisualSetting;
using testing::ElementsAre;

constexpr int onPage[] = {1, 2, 3, 4, 6};

int OnPage(Setting::DivideType mode)
{
    return onPage[mode];
}

TEST(PageArithmetic, CountsPages)
{
    const struct
    {
        int photosOnPage;
        int photos;
        int top;
        int page;
        int pages;
        int first;
    } cases[] = {{1, 0, 0, 1, 0, 0},  {1, 1, 0, 1, 1, 0},
                 {1, 7, 6, 7, 7, 6},  {4, 7, 0, 1, 2, 0},
                 {4, 7, 3, 1, 2, 0},  {4, 7, 4, 2, 2, 4},
                 {4, 8, 7, 2, 2, 4},  {6, 6, 5, 1, 1, 0},
                 {6, 7, 6, 2, 2, 6},  {6, 7, -1, 1, 2, 0},
                 {6, 0, 12, 1, 0, 0}, {0, 7, 5, 1, 1, 0},
                 {0, 0, 0, 1, 1, 0},  {3, 100000, 99999, 33334, 33334, 99999}};
    for (const auto& expected : cases) {
        PageArithmetic pages;
        pages.SetPhotosOnPage(expected.photosOnPage);
        pages.ResetPageCount(expected.top, expected.photos);
        SCOPED_TRACE(testing::Message() << expected.photosOnPage << " of " << expected.photos
                                        << " at " << expected.top);
        EXPECT_EQ(pages.CurrentPage(), expected.page);
        EXPECT_EQ(pages.TotalPage(), expected.pages);
        EXPECT_EQ(pages.FirstPosition(), expected.first);
    }
}

TEST(PageArithmetic, FindsThePageOfAPosition)
{
    PageArithmetic pages;
    pages.SetPhotosOnPage(6);
    EXPECT_EQ(pages.NormalizeTopPhotoId(13, 20), 12);
    EXPECT_EQ(pages.GetPageNumber(13, 20), 2);
    EXPECT_EQ(pages.NormalizeTopPhotoId(13, 0), 0);
    pages.SetPhotosOnPage(0);
    EXPECT_EQ(pages.NormalizeTopPhotoId(13, 20), 0);
    EXPECT_EQ(pages.GetPageNumber(13, 20), 0);
}

/// Where the position \p position of \p photos stands in \p mode.
CellPosition At(Setting::DivideType mode, int position, int photos)
{
    PageArithmetic pages;
    pages.SetPhotosOnPage(OnPage(mode));
    pages.ResetPageCount(position, photos);
    const int first = pages.FirstPosition();
    return {.mode = mode,
            .cell = std::max(0, position - first),
            .filledCells = std::min(OnPage(mode), photos - first),
            .page = pages.CurrentPage(),
            .pages = pages.TotalPage(),
            .position = position,
            .photoCount = photos};
}

TEST(CellMoves, GoByRowsInTwoColumns)
{
    using enum CellMove::Kind;
    constexpr auto four = Setting::DivideFour;
    constexpr auto six = Setting::DivideSix;
    const struct
    {
        const char* what;
        Setting::DivideType mode;
        int position;
        int photos;
        CellMove left;
        CellMove right;
    } cases[] = {
        {"top left of page 1", four, 0, 7, {Nothing}, {SelectCell, 2}},
        {"bottom left", four, 1, 7, {SelectCell, 2}, {SelectCell, 3}},
        {"top right", four, 2, 7, {SelectCell, 0}, {SelectCell, 1}},
        {"last cell", four, 3, 7, {SelectCell, 1}, {NextPage}},
        {"top left of page 2", four, 4, 7, {PreviousPageCell, 3}, {SelectCell, 2}},
        {"bottom left, none to the right", four, 5, 7, {SelectCell, 2}, {Nothing}},
        {"last photograph in a right column", four, 6, 7, {SelectCell, 0}, {SelectCell, 1}},
        {"last cell of the last page", four, 7, 8, {SelectCell, 1}, {Nothing}},
        {"none to the right of the middle", six, 1, 4, {SelectCell, 3}, {SelectCell, 2}},
        {"none to the right of the bottom", six, 2, 4, {SelectCell, 1}, {Nothing}},
        {"middle of a left column alone", six, 1, 3, {SelectCell, 0}, {SelectCell, 2}},
        {"behind the last of a left column", six, 1, 2, {SelectCell, 0}, {Nothing}},
        {"one alone", six, 0, 1, {Nothing}, {Nothing}},
        {"none at all", six, -1, 0, {Nothing}, {Nothing}},
        {"full page", six, 5, 6, {SelectCell, 2}, {Nothing}},
        {"full page, more behind it", six, 5, 7, {SelectCell, 2}, {NextPage}},
        {"page 2 of one", six, 6, 7, {PreviousPageCell, 5}, {Nothing}}};
    for (const auto& expected : cases) {
        const CellPosition from = At(expected.mode, expected.position, expected.photos);
        EXPECT_EQ(MoveOnPage(MoveKey::Left, from), expected.left) << expected.what;
        EXPECT_EQ(MoveOnPage(MoveKey::Right, from), expected.right) << expected.what;
    }
}

// Whatever the set, a key leads to a photograph and a page that are there.
TEST(CellMoves, NeverLeaveTheSet)
{
    constexpr MoveKey keys[] = {MoveKey::PageUp, MoveKey::PageDown, MoveKey::Left,
                                MoveKey::Right,  MoveKey::Up,       MoveKey::Down};
    for (int mode = Setting::DivideOne; mode <= Setting::DivideSix; ++mode) {
        for (const int photos : {0, 1, 6, 7, 13}) {
            for (int position = photos == 0 ? -1 : 0; position < photos; ++position) {
                const CellPosition from =
                    At(static_cast<Setting::DivideType>(mode), position, photos);
                for (const MoveKey key : keys) {
                    const CellMove move = MoveOnPage(key, from);
                    SCOPED_TRACE(testing::Message() << "mode " << mode << ", " << position << " of "
                                                    << photos << ", key " << static_cast<int>(key));
                    EXPECT_FALSE(move.kind == CellMove::NextPage && from.page >= from.pages);
                    EXPECT_FALSE(move.kind >= CellMove::PreviousPageCell && from.page == 1);
                    EXPECT_FALSE(move.kind == CellMove::PreviousPage && from.page == 1);
                    EXPECT_FALSE(move.kind == CellMove::PreviousPhoto && position <= 0);
                    EXPECT_FALSE(move.kind == CellMove::NextPhoto && position >= photos - 1);
                    EXPECT_FALSE(move.kind == CellMove::SelectCell &&
                                 (move.cell < 0 || move.cell >= from.filledCells));
                }
            }
        }
    }
}

TEST(CellMoves, GoToTheNeighbourInOneColumn)
{
    using enum CellMove::Kind;
    for (const auto mode : {Setting::DivideOne, Setting::DivideTwo, Setting::DivideThree}) {
        for (const auto& [back, forth] :
             {std::pair(MoveKey::Left, MoveKey::Right), std::pair(MoveKey::Up, MoveKey::Down)}) {
            EXPECT_EQ(MoveOnPage(back, At(mode, 1, 3)).kind, PreviousPhoto);
            EXPECT_EQ(MoveOnPage(forth, At(mode, 1, 3)).kind, NextPhoto);
            EXPECT_EQ(MoveOnPage(back, At(mode, 0, 3)).kind, Nothing);
            EXPECT_EQ(MoveOnPage(forth, At(mode, 2, 3)).kind, Nothing);
        }
    }
    // Up and Down are the neighbours in two columns, too.
    EXPECT_EQ(MoveOnPage(MoveKey::Up, At(Setting::DivideSix, 6, 7)).kind, PreviousPhoto);
    EXPECT_EQ(MoveOnPage(MoveKey::Down, At(Setting::DivideSix, 5, 7)).kind, NextPhoto);
}

TEST(CellMoves, GoOnOverTheEndOfALineOfThumbnails)
{
    using enum CellMove::Kind;
    EXPECT_EQ(MoveOnList(MoveKey::Left, 4, 4, 7), PreviousPhoto);
    EXPECT_EQ(MoveOnList(MoveKey::Right, 3, 3, 7), NextPhoto);
    EXPECT_EQ(MoveOnList(MoveKey::Left, 4, 3, 7), Nothing) << "the list itself has moved";
    EXPECT_EQ(MoveOnList(MoveKey::Left, 0, 0, 7), Nothing);
    EXPECT_EQ(MoveOnList(MoveKey::Right, 6, 6, 7), Nothing);
    EXPECT_EQ(MoveOnList(MoveKey::Right, -1, -1, 0), Nothing);
    EXPECT_EQ(MoveOnList(MoveKey::Down, 3, 3, 7), Nothing);
}

TEST(PageLayout, GivesWhatDoesNotDivideToLaterCells)
{
    EXPECT_THAT(LayOutPage(100, 50, 1, 1), ElementsAre(CellPlace{0, 0, 100, 50}));
    EXPECT_THAT(LayOutPage(100, 50, 1, 2),
                ElementsAre(CellPlace{0, 0, 100, 25}, CellPlace{0, 27, 100, 23}));
    // Down the columns. 201 / 2 = 100, then 201 - 102; 101 / 3 = 33, then (101 - 35) / 2, then
    // 101 - 70.
    EXPECT_THAT(LayOutPage(201, 101, 2, 3),
                ElementsAre(CellPlace{0, 0, 100, 33}, CellPlace{0, 35, 100, 33},
                            CellPlace{0, 70, 100, 31}, CellPlace{102, 0, 99, 33},
                            CellPlace{102, 35, 99, 33}, CellPlace{102, 70, 99, 31}));
    for (const CellPlace& place : LayOutPage(1, 1, 2, 3)) {
        EXPECT_GE(place.width, 0);
        EXPECT_GE(place.height, 0);
    }
}

TEST(StripPlaces, LieInTheMiddleOfTheThumbnail)
{
    EXPECT_EQ(StripPlaceOnItem({20, 40, 166, 198}), (CellPlace{28, 145, 150, 30}));
    EXPECT_EQ(StripPlaceOnItem({20, 40, 174, 198}), (CellPlace{32, 145, 150, 30}));
    EXPECT_TRUE(IsItemInSight({0, 0, 166, 198}, 100, 100));
    EXPECT_TRUE(IsItemInSight({-100, -100, 166, 198}, 100, 100));
    EXPECT_FALSE(IsItemInSight({0, 100, 166, 198}, 100, 100));
    EXPECT_FALSE(IsItemInSight({0, -198, 166, 197}, 100, 100));
    EXPECT_FALSE(IsItemInSight({100, 0, 166, 198}, 100, 100));
}

TEST(StripPlaces, AskAboutFewRows)
{
    // Four items to a line of 200 pixels, scrolled down by 25,000 lines and a half.
    int asked = 0;
    const auto placeOf = [&asked](int row) {
        ++asked;
        return CellPlace{row % 4 * 170, row / 4 * 200 - 5000100, 166, 198};
    };
    EXPECT_EQ(RowsInSight(1000000, 450, placeOf), (RowRange{100000, 100012}));
    EXPECT_LT(asked, 100);
    EXPECT_EQ(RowsInSight(8, 450, placeOf), (RowRange{8, 8}));
    EXPECT_EQ(RowsInSight(0, 450, placeOf), (RowRange{0, 0}));
}

TEST(PanelUpdates, BuildAnewOnlyWhatSettingsChange)
{
    constexpr SettingChange rebuild{.rebuild = true};
    const auto hide = [](Setting& now) { now.SetVisibleComment(false); };
    const auto noInformation = [](Setting& now) { now.SetImageTextArrange(Setting::TextHidden); };
    const auto noDetail = [](Setting& now) { now.SetVisibleDetail(false); };
    const struct
    {
        const char* what;
        Setting::DivideType mode;
        std::function<void(Setting&)> change;
        SettingChange expected;
    } cases[] = {{"nothing", Setting::DivideSix, [](Setting&) {}, rebuild},
                 {"another mode", Setting::DivideSix,
                  [](Setting& now) { now.SetDivType(Setting::DivideFour); }, rebuild},
                 {"list for list, with more", Setting::DivideThumbnails,
                  [&](Setting& now) {
                      now.SetDivType(Setting::DivideList);
                      noInformation(now);
                      noDetail(now);
                  },
                  rebuild},
                 {"comments", Setting::DivideSix, hide, {.toggleStrips = true}},
                 {"comments", Setting::DivideThumbnails, hide, rebuild},
                 {"comments", Setting::DivideList, hide, rebuild},
                 {"information", Setting::DivideOne, noInformation, {.layOutCells = true}},
                 {"information", Setting::DivideThumbnails, noInformation, {}},
                 {"information", Setting::DivideList, noInformation, {}},
                 {"detail", Setting::DivideSix, noDetail, {}},
                 {"detail and items",
                  Setting::DivideSix,
                  [&](Setting& now) {
                      noDetail(now);
                      now.GetItemShowSettings().Add("工種", true, 1, GradeRequired, InfoDelivery);
                  },
                  {.refillCells = true}},
                 {"detail and title", Setting::DivideSix,
                  [&](Setting& now) {
                      noDetail(now);
                      now.SetTitleShowType(Setting::TitleFileName);
                  },
                  rebuild},
                 {"comments and tamper check", Setting::DivideSix,
                  [&](Setting& now) {
                      hide(now);
                      now.SetDoEditCheck(true);
                  },
                  rebuild}};
    for (const auto& expected : cases) {
        Setting before;
        before.SetDivType(expected.mode);
        Setting now = before;
        expected.change(now);
        EXPECT_EQ(ChangeOf(before, now, false), expected.expected)
            << expected.what << " in " << expected.mode;
        EXPECT_EQ(ChangeOf(before, now, true), rebuild) << expected.what;
    }
}

TEST(LabelMenuItems, AreEnabledByWhatIsPasted)
{
    const OpenedSample sample(DeliveryBuilder({.photos = 1, .drawings = 0, .images = false}));
    EXPECT_EQ(EnabledLabelItems(sample.Photo(0)),
              (LabelMenuItems{{true, true, true, true, true, true}, {}, false}));
    PasteLabel(*sample.document, 0, LabelNg2);
    PasteLabel(*sample.document, 0, LabelFree);
    EXPECT_EQ(EnabledLabelItems(sample.Photo(0)),
              (LabelMenuItems{{true, true, false, true, true, false},
                              {false, false, true, false, false, true},
                              true}));
}

TEST(UncheckedSearch, GoesRoundOnce)
{
    const OpenedSample sample(DeliveryBuilder({.photos = 4, .drawings = 0, .images = false}));
    ToviData& data = *sample.document;
    EXPECT_EQ(NextUnchecked(data, -1), 0);
    EXPECT_EQ(NextUnchecked(data, 3), 0);
    for (const int checked : {0, 1, 3}) PasteLabel(data, data.GetPhotoIndex(checked), LabelOk);
    EXPECT_EQ(NextUnchecked(data, 0), 2);
    EXPECT_EQ(NextUnchecked(data, 2), 2);
    PasteLabel(data, data.GetPhotoIndex(2), LabelFree);
    EXPECT_EQ(NextUnchecked(data, 3), 2) << "that label checks nothing";
    PasteLabel(data, data.GetPhotoIndex(2), LabelNg3);
    EXPECT_EQ(NextUnchecked(data, 0), -1);
    EXPECT_EQ(NextUnchecked(ToviData(), -1), -1);
}
} // namespace
