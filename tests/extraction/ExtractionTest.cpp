#include "extraction/ConditionEntries.h"
#include "extraction/ToviExtractionDlg.h"
#include "extraction/ToviSortCondition.h"
#include "items/ToviPhotoCtrlVisualSetting.h"
#include "photos/LabelSlots.h"
#include "photos/ToviPhoto.h"
#include "photos/ToviPhotoArray.h"
#include "support/Labels.h"
#include "support/OpenedSample.h"

#include <gtest/gtest.h>

#include <chrono>

namespace
{
/// The extraction window without a window: conditions, and what it was told.
struct Window : ToviExtractionDlg
{
    const ExtractionConditions& GetConditions() const override { return conditions; }
    void CancelExtraction(CancelExt value) override { told.push_back(value); }

    ExtractionConditions conditions;
    std::vector<int> told;
};

struct Extraction : OpenedSample
{
    explicit Extraction(const SampleOptions& options, PhotoXMLType family = PhotoXMLMlit)
        : OpenedSample(DeliveryBuilder(options), family)
    {
        document->SetExtractionData(&window);
        // One item that all have in any kind makes the walk over the tree keep the file's order.
        for (int photo = 0; photo < options.photos; ++photo) {
            for (const char* title : {"写真-大分類", "写真区分", "工種", "種別", "細別"}) {
                Give(photo, title, "同じ");
            }
        }
        document->BuildTreeNode(ToviPhotoCtrlVisualSetting::TreeWorkTypeFull);
    }

    /// Makes \p value the only one of the item.
    void Give(int photo, const char* title, const char* value)
    {
        Take(photo, title);
        Photo(photo).GetItems().Add(ToviItem(DefIndex(title), value));
    }

    void Take(int photo, const char* title)
    {
        ToviItemArray& items = Photo(photo).GetItems();
        for (int i = items.GetSize() - 1; i >= 0; --i) {
            if (items[i].GetDefIndex() == DefIndex(title)) items.RemoveAt(i);
        }
    }

    /// The photo indexes of the current array, as digits.
    CString Current() const
    {
        CString digits;
        for (const int index : document->GetCurrentArray()) digits += std::to_string(index);
        return digits;
    }

    CString Extracted(int orMode)
    {
        window.conditions.orMode = orMode;
        document->ExecExtraction();
        return Current();
    }

    Window window;
};

constexpr SampleOptions six = {.photos = 6, .drawings = 0, .images = false};

ExtractionConditions Item(std::size_t row, const char* title, const char* text)
{
    ExtractionConditions conditions;
    conditions.itemOn[row] = true;
    conditions.itemTitle[row] = title;
    conditions.itemText[row] = text;
    return conditions;
}

ExtractionConditions Both(ExtractionConditions one, const ExtractionConditions& other)
{
    for (std::size_t row = 0; row < one.itemOn.size(); ++row) {
        if (!other.itemOn[row]) continue;
        one.itemOn[row] = true;
        one.itemTitle[row] = other.itemTitle[row];
        one.itemText[row] = other.itemText[row];
    }
    return one;
}

ExtractionConditions Days(const char* from, const char* to, int kind = 0)
{
    ExtractionConditions conditions;
    conditions.dateOn = true;
    conditions.dateKind = kind;
    conditions.dateFrom = from;
    conditions.dateTo = to;
    return conditions;
}

ExtractionConditions With(bool ExtractionConditions::*flag, ExtractionConditions conditions = {})
{
    conditions.*flag = true;
    return conditions;
}

TEST(Extraction, JudgesByEveryCondition)
{
    using C = ExtractionConditions;
    Extraction sample(six);
    const char* const keys[] = {"1", "0", "", "１", "11", "1"};
    const char* const titles[] = {"A", "B", "", "a", "AA", nullptr};
    const char* const dates[] = {"2024-04-01", "2024-04-30", "", "2024-05-01", "2024-03-31", ""};
    for (int photo = 0; photo < 6; ++photo) {
        sample.Give(photo, "代表写真", keys[photo]);
        sample.Give(photo, "撮影年月日", dates[photo]);
        sample.Give(photo, "撮影箇所", "道");
        sample.Give(photo, "請負者説明文", "");
        sample.Take(photo, "写真タイトル");
        if (titles[photo] != nullptr) sample.Give(photo, "写真タイトル", titles[photo]);
    }
    sample.Photo(1).GetItems().Add(ToviItem(sample.DefIndex("撮影箇所"), "橋"));
    PasteLabel(*sample.document, 0, LabelOk);
    PasteLabel(*sample.document, 1, LabelNg1);
    PasteLabel(*sample.document, 2, LabelComment);
    PasteLabel(*sample.document, 3, LabelNg3);

    const std::tuple<const char*, ExtractionConditions, const char*, const char*> cases[] = {
        {"nothing is on", {}, "012345", ""},
        {"a key photograph says exactly 1", With(&C::keyPhoto), "05", "05"},
        {"any NG label", With(&C::ngPhoto), "13", "13"},
        {"neither OK nor NG", With(&C::notcheckPhoto), "245", "245"},
        {"no photograph is both", With(&C::ngPhoto, With(&C::notcheckPhoto)), "", "12345"},
        {"a required item that is there and empty", With(&C::neceNotwrite), "25", "25"},
        {"a value exactly", Item(0, "写真タイトル", "A"), "0", "0"},
        {"an empty value for the marker, but no missing one", Item(1, "写真タイトル", "【未記入】"),
         "2", "2"},
        {"any of several values", Item(2, "撮影箇所", "橋"), "1", "1"},
        {"an unknown item", Item(0, "ない項目", "【未記入】"), "", ""},
        {"a missing item passes on to the next",
         Both(Item(0, "写真タイトル", "A"), Item(1, "撮影箇所", "道")), "0", "012345"},
        {"days with both ends", Days("2024-04-01", "2024-04-30"), "01", "01"},
        {"an earlier condition saves a photograph without a date",
         With(&C::keyPhoto, Days("2024-04-30", "2024-04-30")), "", "015"},
        {"days and labels", With(&C::ngPhoto, Days("2024-04-01", "2024-04-30")), "1", "013"},
    };
    for (const auto& [name, conditions, expectedAnd, expectedOr] : cases) {
        sample.window.conditions = conditions;
        EXPECT_EQ(sample.Extracted(0), expectedAnd) << name << ", all";
        EXPECT_EQ(sample.Extracted(1), expectedOr) << name << ", any";
    }
}

TEST(Extraction, TakesKeyPhotographsAsOffWhereThereAreNone)
{
    Extraction sample({.section = "NEXCO-14", .photos = 3, .drawings = 0, .images = false},
                      PhotoXMLNexco);
    ASSERT_EQ(sample.DefIndex("代表写真"), -1);
    sample.window.conditions.keyPhoto = true;
    EXPECT_EQ(sample.Extracted(0), "012");
    EXPECT_EQ(sample.Extracted(1), "");
    PasteLabel(*sample.document, 1, LabelNg2);
    sample.window.conditions.ngPhoto = true;
    EXPECT_EQ(sample.Extracted(0), "1");
    EXPECT_EQ(sample.Extracted(1), "1");
}

TEST(Extraction, LooksIntoTheFiles)
{
    Extraction sample({.photos = 3, .drawings = 0});
    const std::filesystem::path there = sample.Photo(0).GetImagePath();
    std::filesystem::remove(sample.Photo(1).GetImagePath());
    // The noon of a day, so that it is that day in most time zones.
    const auto day = std::chrono::sys_days(std::chrono::year(2024) / 4 / 30) +
                     std::chrono::seconds(std::chrono::hours(12));
    for (const int photo : {0, 2}) {
        sample.Give(photo, "撮影年月日", "");
        std::filesystem::last_write_time(sample.Photo(photo).GetImagePath(),
                                         std::chrono::file_clock::from_sys(day));
    }
    sample.window.conditions = Days("2024-04-30", "2024-04-30", 1);
    EXPECT_EQ(sample.Extracted(0), "02");
    EXPECT_EQ(sample.Extracted(1), "02");
    sample.window.conditions = With(&ExtractionConditions::notExifinfo);
    const CString without = sample.Extracted(0);
    EXPECT_NE(without.find('1'), CString::npos) << "a photograph without a file has no Exif";
    EXPECT_EQ(sample.Extracted(1), without);
}

TEST(Extraction, StopsAtCancelWithTheWholeNode)
{
    // Two pumps for a photograph, one before the first; Cancel is looked for in the first of them.
    for (const int pump : {1, 2, 4, 6}) {
        Extraction sample({.photos = 3, .drawings = 0, .images = false});
        ToviData& document = *sample.document;
        sample.services.user.cancelAtPumps = {pump};
        sample.window.conditions.ngPhoto = true;
        sample.host.hints.clear();
        EXPECT_EQ(sample.Extracted(0), "012") << pump;
        EXPECT_EQ(sample.window.told, std::vector<int>{CancelExtButton});
        EXPECT_EQ(sample.host.hints, std::vector<int>{ToviData::HintSelectionChanged});
        EXPECT_EQ(sample.services.user.progress.back(), "close");
        document.SetSelected(document.ToviNode::GetNode(0), true);
        EXPECT_EQ(sample.Current(), "012") << "extraction is off";
    }
}

TEST(Extraction, IsOnAndOffAsItIsTold)
{
    Extraction sample({.photos = 3, .drawings = 0, .images = false});
    ToviData& document = *sample.document;
    std::vector<int>& hints = sample.host.hints;
    ToviNode* const node = document.ToviNode::GetNode(0);
    sample.window.conditions.notcheckPhoto = true;
    PasteLabel(*sample.document, 1, LabelOk);
    hints.clear();

    document.CancelExtraction(CancelExtReset);
    EXPECT_TRUE(hints.empty());
    EXPECT_TRUE(sample.window.told.empty()) << "off already";
    EXPECT_EQ(sample.Extracted(0), "02");
    PasteLabel(*sample.document, 0, LabelOk);
    EXPECT_EQ(sample.Current(), "02") << "until the next rebuild";
    EXPECT_EQ(sample.Extracted(0), "2");
    EXPECT_EQ(hints, std::vector<int>(2, ToviData::HintSelectionChanged));

    document.SetSelected(node, false);
    EXPECT_EQ(sample.Current(), "2");
    document.SetSelected(static_cast<int>(LabelOk));
    EXPECT_EQ(sample.Current(), "01") << "labels are not filtered";
    document.BuildTreeNode(ToviPhotoCtrlVisualSetting::TreePlace);
    EXPECT_EQ(sample.Current(), "2");

    hints.clear();
    document.CancelExtraction(CancelExtReset);
    EXPECT_EQ(sample.window.told, std::vector<int>{CancelExtReset});
    EXPECT_TRUE(hints.empty());
    document.CancelExtraction();
    EXPECT_EQ(sample.Current().size(), 3u) << "rebuilds even when off";
    EXPECT_EQ(hints, std::vector<int>{ToviData::HintSelectionChanged});
}

TEST(Extraction, ConditionsOutliveTheProgram)
{
    ExtractionConditions all;
    for (bool* on : {&all.keyPhoto, &all.ngPhoto, &all.notcheckPhoto, &all.notExifinfo,
                     &all.neceNotwrite, &all.dateOn, &all.itemOn[0], &all.itemOn[2]}) {
        *on = true;
    }
    all.itemTitle = {"工種", "種別", "細別"};
    all.itemText = {"a=b", "", "0"};
    all.dateKind = 1;
    all.dateFrom = "2024-05-01";
    all.dateTo = "2024-05-31";
    all.orMode = 1;
    EXPECT_EQ(ConditionsIn(EntriesOf(all)), all);
    EXPECT_EQ(ConditionsIn({{"photo", "3"}}), ExtractionConditions());
}

TEST(Extraction, SortsWhatItLeaves)
{
    Extraction sample({.photos = 4, .drawings = 0, .images = false});
    ToviSortCondition descending;
    descending.ExecSort(true);
    descending.Ascending(false);
    descending.SetKeyItem("シリアル番号");
    sample.document->SetSortCondition(descending);
    sample.window.conditions.notcheckPhoto = true;
    PasteLabel(*sample.document, 2, LabelOk);
    EXPECT_EQ(sample.Extracted(0), "310");
    sample.services.user.cancelAtPumps = {sample.services.user.pumps + 1};
    EXPECT_EQ(sample.Extracted(0), "3210") << "the whole node after a cancel, too";
}
} // namespace
