#include "extraction/ToviSortCondition.h"
#include "items/ToviItemDef.h"
#include "items/ToviItemManager.h"
#include "items/ToviPhotoCtrlVisualSetting.h"
#include "items/ToviTextPair.h"
#include "photos/ToviPhoto.h"
#include "review/ToviLabelManager.h"
#include "support/OpenedSample.h"

#include <gmock/gmock.h>

namespace
{
using testing::ElementsAre;

constexpr const char* section = ToviItemManager::ShowSettingSection_;
constexpr const char* entry = ToviItemManager::ShowItemsEntry_;

std::vector<CString> Shown(const ToviItemShowSettings& items, InfoType type)
{
    std::vector<CString> titles;
    for (const ToviItemShowSetting& item : items) {
        if (item.bold && item.infoType == type) titles.push_back(item.title);
    }
    return titles;
}

TEST(ItemManager, KeepsTheHiddenTitles)
{
    const std::pair<const char*, std::vector<CString>> cases[] = {
        {"", {}},
        {"緯度", {"緯度"}},
        {"緯度,経度", {"緯度", "経度"}},
        {"緯度,,経度", {"緯度", "", "経度"}},
        {"緯度,", {"緯度"}},
        {",", {""}}};
    for (const auto& [stored, expected] : cases) {
        TestHost host;
        host.profile.WriteProfileString(section, entry, stored);
        CStringArray hidden{"前から"};
        EXPECT_EQ(ToviItemManager().Load(hidden), !expected.empty()) << stored;
        hidden.RemoveAt(0);
        EXPECT_EQ(std::vector<CString>(hidden.begin(), hidden.end()), expected);
    }
}

TEST(ItemManager, ChangesNoItemThatOthersChanged)
{
    TestHost host;
    host.profile.WriteProfileString(section, entry, "緯度,撮影日時");
    ToviItemManager manager;
    CStringArray hidden;
    manager.Load(hidden);
    for (const auto& [title, shown] :
         {std::pair{"緯度", false}, {"経度", true}, {"撮影日時", false}, {"フラッシュ", true}}) {
        manager.GetItemShowSettings().Add(title, shown, 9, GradeOptional, InfoExif);
    }
    ToviItemManager dialog = manager;
    dialog.GetItemShowSettings()[0].Bold(true);
    host.profile.WriteProfileString(section, entry, "緯度,フラッシュ,経度");
    manager = dialog;
    EXPECT_TRUE(manager.Save());
    EXPECT_EQ(host.profile.GetProfileString(section, entry, ""), "経度,フラッシュ");
    EXPECT_TRUE(manager.Save());
    EXPECT_EQ(host.profile.GetProfileString(section, entry, ""), "経度,フラッシュ");
    manager.TakeOver();
    EXPECT_THAT(Shown(manager.GetItemShowSettings(), InfoExif), ElementsAre("緯度", "撮影日時"));
}

/// A document whose user interface and profile are those of \p services.
struct Document : OpenedSample
{
    explicit Document(const char* kind = "国交省-20", PhotoXMLType family = PhotoXMLMlit)
        : OpenedSample(DeliveryBuilder({.section = kind, .photos = 2, .images = false}), family)
    {}

    /// Opens the same delivery again, as the next run of the program.
    void Reopen()
    {
        document.reset();
        Open(temp.Path("PHOTO"));
        document->Load();
    }

    const ToviItemShowSettings& Items() const
    {
        return document->GetVisualSetting().GetItemShowSettings();
    }
};

TEST(ItemsOfADelivery, AreTheUsualOnesAtFirst)
{
    Document opened;
    opened.services.profile.WriteProfileString(section, entry, "写真タイトル");
    opened.services.profile.WriteProfileInt("VisualSetting", "VisibleControlValue", 100);
    EXPECT_TRUE(opened.document->Load());
    EXPECT_THAT(Shown(opened.Items(), InfoDelivery),
                ElementsAre("写真ファイル日本語名", "写真タイトル", "工種区分予備", "撮影箇所",
                            "撮影年月日", "施工管理値", "請負者説明文"));
    EXPECT_THAT(Shown(opened.Items(), InfoFile),
                ElementsAre("ファイルサイズ", "幅×高さ", "総画素数", "最終更新日時"));
    EXPECT_EQ(Shown(opened.Items(), InfoExif).size(), 8u);
    const ToviItemShowSetting& last = opened.Items()[opened.Items().GetSize() - 1];
    EXPECT_EQ(last.title, "Fナンバー");
    EXPECT_EQ(last.index, opened.document->GetItemDef()->GetCount());
    EXPECT_TRUE(opened.document->GetVisualSetting().GetVisibleControlValue());
    EXPECT_TRUE(opened.document->GetItemManager()->GetItemShowSettings() == opened.Items());
}

TEST(ItemsOfADelivery, FollowTheHiddenListOfTheSameKind)
{
    Document opened;
    opened.document->Load();
    opened.services.profile.WriteProfileString(section, entry,
                                               "写真タイトル,,fナンバー,消えた項目");
    opened.services.profile.WriteProfileInt("VisualSetting", "VisibleControlValue", 100);
    // Its end saves the setting, so the flag is written behind it.
    opened.document.reset();
    opened.services.profile.WriteProfileInt("VisualSetting", "VisibleControlValue", 100);
    opened.Reopen();
    EXPECT_FALSE(opened.Items().IsBold("写真タイトル"));
    EXPECT_FALSE(opened.Items().IsBold("Fナンバー"));
    EXPECT_TRUE(opened.Items().IsBold("フラッシュ"));
    EXPECT_TRUE(opened.Items().IsBold("シリアル番号"));
    EXPECT_FALSE(opened.document->GetVisualSetting().GetVisibleControlValue());
    EXPECT_EQ(opened.services.profile.GetProfileString(section, entry, ""),
              "写真タイトル,Fナンバー");
    opened.Reopen();
    EXPECT_FALSE(opened.Items().IsBold("写真タイトル"));
}

TEST(ItemsOfADelivery, BeginAnewWithAnotherKind)
{
    Document opened;
    opened.document->Load();
    opened.services.profile.WriteProfileString("PhotoFileType", "Type", "農水省-23");
    opened.services.profile.WriteProfileString(section, entry, "写真タイトル");
    opened.Reopen();
    EXPECT_TRUE(opened.Items().IsBold("写真タイトル"));
    EXPECT_FALSE(opened.Items().IsBold("シリアル番号"));
    EXPECT_TRUE(opened.services.profile.GetProfileString(section, entry, "")
                    .starts_with("シリアル番号,写真ファイル名"));
}

TEST(DocumentSettings, AreTakenOverWithTheItemsOfTheManager)
{
    Document opened;
    ToviData& document = *opened.document;
    document.Load();
    ToviPhotoCtrlVisualSetting setting = document.GetVisualSetting();
    setting.SetDivType(ToviPhotoCtrlVisualSetting::DivideFour);
    setting.SetItemShowSettings({});
    document.SetVisualSetting(setting, false);
    EXPECT_EQ(document.GetVisualSetting().GetDivType(), ToviPhotoCtrlVisualSetting::DivideFour);
    EXPECT_TRUE(opened.Items().IsBold("写真タイトル"));
    EXPECT_EQ(opened.services.profile.GetProfileInt("VisualSetting", "DivideType", 0), 103)
        << "a crash now would lose it";

    ToviItemManager items = *document.GetItemManager();
    items.GetItemShowSettings()[items.GetItemShowSettings().Find("写真タイトル")].Bold(false);
    document.SetManager(*document.GetLabelManager(), items, false);
    EXPECT_TRUE(document.GetItemManager()->GetItemShowSettings().IsBold("写真タイトル"));
    document.SetManager(*document.GetLabelManager(), items, true);
    document.SetVisualSetting(setting, false);
    EXPECT_FALSE(opened.Items().IsBold("写真タイトル"));
}

TEST(TextPairs, FollowTheSettingsInTheirOrder)
{
    Document opened;
    ToviPhoto& photo = opened.Photo(0);
    ToviItemDef* const def = opened.document->GetItemDef();
    const int date = opened.DefIndex("撮影年月日");
    const int repeated = opened.DefIndex("工種区分予備");
    photo.GetItems().RemoveAll();
    for (const auto& [index, value] :
         {std::pair{repeated, "一"}, {date, "2024-03-01"}, {repeated, "二-2"}}) {
        photo.GetItems().Add(ToviItem(index, value));
    }
    ToviItemShowSettings settings;
    settings.Add("ファイルサイズ", true, def->GetCount(), GradeOptional, InfoFile);
    settings.Add("撮影年月日", true, date, GradeRequired, InfoDelivery);
    settings.Add("緯度", true, def->GetCount(), GradeOptional, InfoExif);
    settings.Add("工種区分予備", true, repeated, GradeOptional, InfoDelivery);
    settings.Add("撮影年月日", false, date, GradeRequired, InfoDelivery);
    ToviTextPairArray pairs;
    EXPECT_TRUE(photo.GetTextPairs(def, settings, pairs));
    std::vector<CString> texts;
    for (const ToviTextPair& pair : pairs) texts.push_back(pair.GetItem() + "=" + pair.GetValue());
    EXPECT_THAT(texts, ElementsAre("ファイルサイズ=", "撮影年月日=2024/03/01",
                                   "緯度=", "工種区分予備=一", "工種区分予備=二-2"));
}
} // namespace
