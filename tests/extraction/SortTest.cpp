#include "extraction/ToviSortCondition.h"
#include "extraction/ToviSorter.h"
#include "items/ToviItemDef.h"
#include "items/ToviPhotoCtrlVisualSetting.h"
#include "photos/LabelSlots.h"
#include "photos/ToviPhotoArray.h"
#include "support/Labels.h"
#include "support/OpenedSample.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace
{
constexpr const char* serialNumber = "シリアル番号";
constexpr const char* photoTitle = "写真タイトル";
constexpr const char* unknownTitle = "ない項目";
/// More than is compared at once.
const CString longText = "令和六年度一般国道改良工事第三工区一式";

std::vector<int> Current(const ToviData& document)
{
    return {document.GetCurrentArray().begin(), document.GetCurrentArray().end()};
}

void SortBy(ToviData& document, const char* key, bool ascending)
{
    ToviSortCondition condition;
    condition.ExecSort(true);
    condition.SetKeyItem(key);
    condition.Ascending(ascending);
    document.SetSortCondition(condition);
}

/// A delivery whose photographs have \p values as those of the item \p title.
struct Valued : OpenedSample
{
    Valued(const char* title, const std::vector<CString>& values)
        : OpenedSample(DeliveryBuilder(
              {.photos = static_cast<int>(values.size()), .drawings = 0, .images = false}))
    {
        for (std::size_t photo = 0; photo < values.size(); ++photo) {
            for (ToviItem& item : Photo(static_cast<int>(photo)).GetItems()) {
                if (item.GetDefIndex() == DefIndex(title)) item.SetValue(values[photo].c_str());
            }
        }
    }
};

TEST(Sort, FollowsTheKindOfTheKeyAndMirrorsItself)
{
    // The values in ascending order; equal ones in the order of the actual array.
    const std::tuple<const char*, const char*, std::vector<CString>> cases[] = {
        {"texts by the codes of their characters, those outside the code page last",
         photoTitle,
         {"", "A", "A ", "B", "a", "ｱ", "ﾟ", "、", "０", "Ａ", "ァ", "ア", "ガ", "亜", "工", "煉",
          "髙", "é", "𠮷"}},
        {"half-width kana in a word, too", photoTitle, {"工ｱ", "工ア", "工亜"}},
        {"long texts behind a common beginning",
         photoTitle,
         {longText, longText + " 1", longText + " 2", longText + "ア"}},
        {"digits of a text as characters", photoTitle, {"10", "9"}},
        {"dates by text", "撮影年月日", {"", "2023-12-31", "2024-01-02", "2024-01-10"}},
        {"serial numbers by number",
         serialNumber,
         {"-99999999999", "-3", "9", "10", "+11", "99999999999"}},
    };
    for (const auto& [name, key, ordered] : cases) {
        std::vector<CString> shuffled = ordered;
        std::reverse(shuffled.begin(), shuffled.end());
        std::rotate(shuffled.begin(), shuffled.begin() + 1, shuffled.end());
        Valued sample(key, shuffled);
        ToviData& document = *sample.document;
        for (const bool ascending : {true, false}) {
            SortBy(document, key, ascending);
            document.SetSelected(&document, true);
            std::vector<CString> sorted;
            for (const int index : Current(document)) {
                sorted.push_back(sample.Photo(index).GetTitle(sample.DefIndex(key)));
            }
            if (!ascending) std::reverse(sorted.begin(), sorted.end());
            EXPECT_EQ(sorted, ordered) << name << ascending;
        }
    }
}

TEST(Sort, LetsTheIndexDecideAmongEqualValues)
{
    const std::tuple<const char*, const char*, const char*, std::vector<CString>, std::vector<int>>
        cases[] = {
            {"by number", serialNumber, serialNumber, {"7a", " 7", "6", "7"}, {2, 0, 1, 3}},
            {"no digits are 0",
             serialNumber,
             serialNumber,
             {"x", "-1", "", "９", "0"},
             {1, 0, 2, 3, 4}},
            {"by text", photoTitle, photoTitle, {"b", "a", "b", "a"}, {1, 3, 0, 2}},
            {"by long text",
             photoTitle,
             photoTitle,
             {longText + "紙", "令和", longText + "紙", longText},
             {1, 3, 0, 2}},
            {"unknown key", photoTitle, unknownTitle, {"d", "c", "b", "a"}, {0, 1, 2, 3}},
        };
    for (const auto& [name, valued, key, values, expected] : cases) {
        Valued sample(valued, values);
        ToviData& document = *sample.document;
        SortBy(document, key, true);
        document.SetSelected(&document, true);
        EXPECT_EQ(Current(document), expected) << name;
        // What stood in the array before has no influence.
        SortBy(document, key, false);
        document.Sort();
        EXPECT_EQ(Current(document), std::vector<int>(expected.rbegin(), expected.rend())) << name;
    }
}

TEST(Sort, TakesAPhotographWithoutTheItemAsEmpty)
{
    Valued sample(photoTitle, {"b", "a", "c"});
    ToviItemArray& items = sample.Photo(2).GetItems();
    for (int i = items.GetSize() - 1; i >= 0; --i) {
        if (items[i].GetDefIndex() == sample.DefIndex(photoTitle)) items.RemoveAt(i);
    }
    SortBy(*sample.document, photoTitle, true);
    sample.document->SetSelected(sample.document.get(), true);
    EXPECT_EQ(Current(*sample.document), (std::vector<int>{2, 1, 0}));
}

TEST(Sort, FollowsEveryRebuildThatAsksForIt)
{
    Valued sample(photoTitle, {"b", "c", "a"});
    ToviData& document = *sample.document;
    const std::vector<int> sorted = {2, 0, 1};
    SortBy(document, photoTitle, true);
    EXPECT_NE(Current(document), sorted) << "setting the condition sorts nothing";

    document.BuildTreeNode(ToviPhotoCtrlVisualSetting::TreePlace);
    EXPECT_EQ(Current(document), sorted);
    for (const int index : {1, 0, 2}) PasteLabel(*sample.document, index, LabelOk);
    document.SetSelected(static_cast<int>(LabelOk));
    EXPECT_EQ(Current(document), sorted);

    document.SetSortCondition({});
    document.SetSelected(static_cast<int>(LabelOk));
    EXPECT_EQ(Current(document), (std::vector<int>{0, 1, 2}));
    document.SetCurPhotoArray(true, false);
    document.Sort();
    EXPECT_TRUE(document.IsPhotoArrayEmpty());
}

TEST(SortCondition, IsAscendingWhenItDoesNotSort)
{
    ToviSortCondition descending;
    descending.Ascending(false);
    EXPECT_FALSE(descending.IsAscending()) << "by itself the direction is free";
    ToviSortCondition assigned;
    assigned = descending;
    EXPECT_TRUE(assigned.IsAscending());
    Valued sample(photoTitle, {"a"});
    sample.document->SetSortCondition(descending);
    EXPECT_TRUE(sample.document->GetSortCondition().IsAscending());
    descending.ExecSort(true);
    EXPECT_FALSE(descending.IsAscending());
    descending.ExecSort(false);
    EXPECT_TRUE(descending.IsAscending());
}
TEST(Sort, GoesByLabelsAndCommentsToo)
{
    OpenedSample sample(DeliveryBuilder({.photos = 5, .drawings = 0, .images = false}));
    ToviData& document = *sample.document;
    PasteLabel(document, 0, LabelNg2);
    PasteLabel(document, 1, LabelOk);
    PasteLabel(document, 3, LabelNg2);
    PasteLabel(document, 3, LabelFree);
    SetComment(document, 2, "い");
    SetComment(document, 4, "あ");
    const std::tuple<const char*, bool, const char*> cases[] = {{"付箋", true, "13024"},
                                                                {"付箋", false, "42031"},
                                                                {"コメント", true, "01342"},
                                                                {"コメント", false, "24310"}};
    for (const auto& [key, isUpwards, order] : cases) {
        ToviSortCondition condition;
        condition.ExecSort(true);
        condition.SetKeyItem(key);
        condition.Ascending(isUpwards);
        document.SetSortCondition(condition);
        document.Sort();
        CString digits;
        for (const int index : document.GetCurrentArray()) digits += std::to_string(index);
        EXPECT_EQ(digits, order) << key;
    }
}
} // namespace
