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
    const struct
    {
        const char* name;
        const char* key;
        /// In ascending order; equal ones in the order of the actual array.
        std::vector<CString> ordered;
    } cases[] = {
        {"texts by the codes of their characters, those outside the code page last",
         photoTitle,
         {"", "A", "A ", "B", "a", "ｱ", "ﾟ", "、", "０", "Ａ", "ァ", "ア", "ガ", "亜", "工", "煉",
          "髙", "é", "𠮷"}},
        {"half-width kana in a word, too", photoTitle, {"工ｱ", "工ア", "工亜"}},
        {"long texts behind a common beginning",
         photoTitle,
         {"道路改良工事一式", "道路改良工事一式 1", "道路改良工事一式 2", "道路改良工事一式ア"}},
        {"digits of a text as characters", photoTitle, {"10", "9"}},
        {"dates by text", "撮影年月日", {"", "2023-12-31", "2024-01-02", "2024-01-10"}},
        {"serial numbers by number",
         serialNumber,
         {"-99999999999", "-3", "9", "10", "+11", "99999999999"}},
    };
    for (const auto& sort : cases) {
        std::vector<CString> shuffled = sort.ordered;
        std::reverse(shuffled.begin(), shuffled.end());
        std::rotate(shuffled.begin(), shuffled.begin() + 1, shuffled.end());
        Valued sample(sort.key, shuffled);
        ToviData& document = *sample.document;
        for (const bool ascending : {true, false}) {
            SortBy(document, sort.key, ascending);
            document.SetSelected(&document, true);
            std::vector<CString> sorted;
            for (const int index : Current(document)) {
                sorted.push_back(sample.Photo(index).GetTitle(sample.DefIndex(sort.key)));
            }
            if (!ascending) std::reverse(sorted.begin(), sorted.end());
            EXPECT_EQ(sorted, sort.ordered) << sort.name << ascending;
        }
    }
}

TEST(Sort, LetsTheIndexDecideAmongEqualValues)
{
    const struct
    {
        const char* name;
        const char* valued;
        const char* key;
        std::vector<CString> values;
        std::vector<int> expected;
    } cases[] = {
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
         {"工事写真台帳の表紙", "工事", "工事写真台帳の表紙", "工事写真台帳の表"},
         {1, 3, 0, 2}},
        {"unknown key", photoTitle, unknownTitle, {"d", "c", "b", "a"}, {0, 1, 2, 3}},
    };
    for (const auto& sort : cases) {
        Valued sample(sort.valued, sort.values);
        ToviData& document = *sample.document;
        SortBy(document, sort.key, true);
        document.SetSelected(&document, true);
        EXPECT_EQ(Current(document), sort.expected) << sort.name;
        // What stood in the array before has no influence.
        SortBy(document, sort.key, false);
        document.Sort();
        EXPECT_EQ(Current(document), std::vector<int>(sort.expected.rbegin(), sort.expected.rend()))
            << sort.name;
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

TEST(Sort, SorterKeepsToTheCurrentArray)
{
    Valued sample(photoTitle, {"b", "a"});
    ToviSorter sorter(*sample.document->GetPhotoDataArray(), *sample.document->GetItemDef());
    ToviPhotoRef ref;
    ref.Add(0);
    sorter.QuickSort(true, ref);
    EXPECT_EQ(ref.GetSize(), 1) << "nothing was prepared";
    for (const int index : {1, 7}) ref.Add(index);
    EXPECT_THROW(sorter.PrepareSort(photoTitle, ref), InvalidArgument);
    EXPECT_EQ(sorter.EndSort(), nullptr);
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

TEST(SortCondition, TakesFromTheProfileWhatWasSaved)
{
    const struct
    {
        int execSort;
        int ascending;
        const char* key;
        bool expectedExecSort;
        bool expectedAscending;
        const char* expectedKey;
    } cases[] = {
        {101, 100, "工種", true, false, "工種"}, {100, 100, "工種", false, false, "工種"},
        {99, 99, "", false, true, "撮影年月日"}, {-1, 7, "_未定義_", false, true, "撮影年月日"},
        {102, 101, "工種", true, true, "工種"},
    };
    for (const auto& stored : cases) {
        TestHost host;
        host.profile.WriteProfileInt("Sort", "ExecSort", stored.execSort);
        host.profile.WriteProfileInt("Sort", "Ascending", stored.ascending);
        host.profile.WriteProfileString("Sort", "KeyItem", stored.key);
        ToviSortCondition condition;
        EXPECT_TRUE(condition.Load());
        EXPECT_EQ(condition.IsExecSort(), stored.expectedExecSort) << stored.execSort;
        EXPECT_EQ(condition.IsAscending(), stored.expectedAscending) << stored.ascending;
        EXPECT_EQ(condition.GetKeyItem(), stored.expectedKey);
    }
}

TEST(SortCondition, SavesItselfOnceItWasLoaded)
{
    TestHost host;
    const auto Stored = [&host] {
        return host.profile.GetProfileString("Sort", "KeyItem", "none");
    };
    {
        ToviSortCondition fresh;
        fresh.SetKeyItem("工種");
    }
    EXPECT_EQ(Stored(), "none");
    {
        ToviSortCondition loaded;
        loaded.Load();
        loaded.SetKeyItem("種別");
        loaded.ExecSort(true);
        {
            ToviSortCondition copy(loaded);
            copy.SetKeyItem("細別");
        }
        EXPECT_EQ(Stored(), "none");
    }
    EXPECT_EQ(Stored(), "種別");
    EXPECT_EQ(host.profile.GetProfileInt("Sort", "ExecSort", -1), 101);
    EXPECT_EQ(host.profile.GetProfileInt("Sort", "Ascending", -1), -1) << "nobody changed it";
}

/// Refuses every write behind the first \p allowed ones.
class FullProfile : public MemoryProfileStore
{
public:
    explicit FullProfile(int writes) : allowed(writes) {}
    bool WriteProfileString(const CString& section, const CString& entry,
                            const CString& value) override
    {
        entries.push_back(entry);
        return allowed-- > 0 && MemoryProfileStore::WriteProfileString(section, entry, value);
    }

    int allowed;
    std::vector<CString> entries;
};

TEST(SortCondition, StopsSavingAtTheFirstRefusal)
{
    const std::vector<CString> order = {"ExecSort", "Ascending", "KeyItem"};
    const TestHost host;
    for (int allowed = 0; allowed <= 3; ++allowed) {
        FullProfile profile(allowed);
        InstallHostServices({nullptr, &profile, "Tovi", ""});
        EXPECT_EQ(ToviSortCondition().Save(), allowed == 3);
        const auto tried = static_cast<std::ptrdiff_t>(std::min(allowed + 1, 3));
        EXPECT_EQ(profile.entries, std::vector<CString>(order.begin(), order.begin() + tried));
    }
    InstallHostServices({});
    EXPECT_FALSE(ToviSortCondition().Save());
}
} // namespace
