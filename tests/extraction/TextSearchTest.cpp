#include "extraction/ToviExtractionDlg.h"
#include "items/ToviPhotoCtrlVisualSetting.h"
#include "photos/LabelSlots.h"
#include "support/Labels.h"
#include "support/OpenedSample.h"

#include <gtest/gtest.h>

namespace
{
struct NgWindow : ToviExtractionDlg
{
    NgWindow() { conditions.ngPhoto = true; }
    const ExtractionConditions& GetConditions() const override { return conditions; }
    void CancelExtraction(CancelExt) override {}

    ExtractionConditions conditions;
};

/// Four photographs with these values alone, and nothing in the names of the others' items.
struct TextSearch : OpenedSample, testing::Test
{
    TextSearch() : OpenedSample(DeliveryBuilder({.photos = 4, .drawings = 0, .images = false}))
    {
        const std::pair<const char*, const char*> values[][2] = {
            {{"写真タイトル", "ｱｽﾌｧﾙﾄ舗装　路盤工"}, {"撮影箇所", "No.10＋1"}},
            {{"写真タイトル", "①掘削\n状況"}, {"撮影箇所", "NO.10"}},
            {{"写真タイトル", "㈱山田"}, {"写真ファイル名", "P0000003.JPG"}},
            {{"写真タイトル", "アスファルト"}, {"撮影箇所", "No.10"}}};
        for (int photo = 0; photo < 4; ++photo) {
            ToviItemArray& items = Photo(photo).GetItems();
            items.RemoveAll();
            for (const auto& [title, value] : values[photo]) {
                items.Add(ToviItem(DefIndex(title), value));
            }
            // The same in all, so that the tree keeps the order of the file.
            items.Add(ToviItem(DefIndex("工種"), "道路"));
        }
        document->BuildTreeNode(ToviPhotoCtrlVisualSetting::TreeWorkTypeFull);
    }

    /// The photographs in which \p text is found, as digits.
    CString Found(const char* text)
    {
        document->SetSearchText(text);
        document->SetSelected(document.get(), true);
        return Current();
    }

    CString Current() const
    {
        CString digits;
        for (const int index : document->GetCurrentArray()) digits += std::to_string(index);
        return digits;
    }
};

TEST_F(TextSearch, LooksThroughItemsFilesAndComments)
{
    SetComment(*document, 1, "要再撮影（アスファルト）");
    const std::pair<const char*, const char*> cases[] = {
        {"", "0123"},         {" 　\t", "0123"},      {"あすふぁると", "013"},
        {"no.10+1", "0"},     {"NO.10", "013"},       {"1掘削", "1"},
        {"(株)", "2"},        {"p0000003.jpg", "2"},  {"ｱｽﾌｧﾙﾄ　no.10", "013"},
        {"再撮影 掘削", "1"}, {"アスファルト株", ""}, {"掘削 状況", "1"},
        {"路盤工no", ""},     {"道路", "0123"}};
    for (const auto& [text, found] : cases) EXPECT_EQ(Found(text), found) << text;
}

TEST_F(TextSearch, FollowsComments)
{
    SetComment(*document, 1, "撮り直し");
    SetComment(*document, 2, "良好");
    EXPECT_EQ(Found("撮り直し"), "1");
    SetComment(*document, 1, "良好");
    SetComment(*document, 3, "撮り直し");
    EXPECT_EQ(Found("撮り直し"), "3");
}

TEST_F(TextSearch, NarrowsWhatExtractionOrALabelLeaves)
{
    NgWindow window;
    document->SetExtractionData(&window);
    for (const int photo : {1, 3}) PasteLabel(*document, photo, LabelNg1);
    document->ExecExtraction();
    EXPECT_EQ(Found("アスファルト"), "3");
    document->CancelExtraction();
    EXPECT_EQ(Current(), "03") << "the search stays";
    document->SetSelected(static_cast<int>(LabelNg1));
    EXPECT_EQ(Current(), "3");
    document->SetExtractionData(nullptr);
}
} // namespace
