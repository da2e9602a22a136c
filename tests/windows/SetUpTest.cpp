#include "imagefacts/ItemCandidates.h"
#include "support/Controls.h"
#include "support/OpenedSample.h"
#include "support/Standins.h"
#include "support/Texts.h"
#include "windows/setup/ItemLists.h"
#include "windows/setup/SetUpRules.h"
#include "windows/setup/ToviItemSetUpDlg.h"
#include "windows/setup/ToviSelectImageTypeDlg.h"
#include "windows/setup/ToviSetUpDlg.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTimer>

namespace
{
using testing::ElementsAre;
using Setting = ToviPhotoCtrlVisualSetting;

QPushButton& OkButton(const QWidget& dialog)
{
    return *dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
}

/// Shows \p dialog, in which the user does \p act; an act that doesn't close it is a cancel.
bool RunDialog(WenDialog& dialog, const std::function<void()>& act)
{
    QTimer::singleShot(0, &dialog, [&dialog, act] {
        act();
        if (dialog.isVisible()) dialog.reject();
    });
    return dialog.DoModal();
}

/// The items "a" to "f": b and d shown, a hidden item of the delivery, c of the file, e and f of
/// Exif.
ToviItemShowSettings SomeItems()
{
    ToviItemShowSettings items;
    items.SetShowTitle(false);
    items.Add("a", false, 0, GradeRequired, InfoDelivery);
    items.Add("b", true, 1, GradeOptional, InfoDelivery);
    items.Add("c", false, 2, GradeOptional, InfoFile);
    items.Add("d", true, 2, GradeOptional, InfoExif);
    items.Add("e", false, 2, GradeOptional, InfoExif);
    items.Add("f", false, 2, GradeOptional, InfoExif);
    return items;
}

/// The lists as "shown|hidden of the delivery|of the file|of Exif", the selected row in brackets.
CString Lists(ItemLists lists)
{
    CString text;
    const auto add = [&](const ItemLists::List& list) {
        for (int row = 0; row < static_cast<int>(list.items.size()); ++row) {
            const CString& title = lists.Title(list.items[static_cast<std::size_t>(row)]);
            text += row == list.selected ? "[" + title + "]" : title;
        }
    };
    add(lists.Shown());
    for (const InfoType kind : {InfoDelivery, InfoFile, InfoExif}) {
        lists.SetKind(kind);
        text += '|';
        add(lists.Hidden());
    }
    return text;
}

TEST(ItemLists, MoveItems)
{
    ItemLists lists(SomeItems());
    EXPECT_EQ(Lists(lists), "bd|a|c|ef");
    EXPECT_EQ(lists.Possible(), (ItemLists::Moves{.accept = true}));
    lists.Show();
    lists.Up();
    EXPECT_EQ(Lists(lists), "bd|a|c|ef") << "nothing is selected";

    lists.SetKind(InfoExif);
    lists.SelectHidden(0);
    lists.Show();
    EXPECT_EQ(Lists(lists), "[e]bd|a|c|[f]") << "on top where nothing is selected";
    lists.Show();
    EXPECT_EQ(Lists(lists), "e[f]bd|a|c|");
    EXPECT_EQ(lists.Possible(),
              (ItemLists::Moves{.hide = true, .up = true, .down = true, .accept = true}));
    lists.Up();
    lists.Up();
    EXPECT_EQ(Lists(lists), "[f]ebd|a|c|");
    lists.SelectShown(2);
    lists.Hide();
    EXPECT_EQ(lists.Kind(), InfoDelivery);
    EXPECT_EQ(Lists(lists), "fe[d]|[b]a|c|");
    EXPECT_FALSE(lists.Possible().down);
    lists.Hide();
    EXPECT_EQ(Lists(lists), "f[e]|[b]a|c|[d]") << "the last row follows";

    const ToviItemShowSettings result = lists.Result();
    CString order;
    for (const ToviItemShowSetting& item : result) order += item.title + (item.bold ? "+" : "-");
    EXPECT_EQ(order, "f+e+b-a-c-d-");
    EXPECT_EQ(result[3].grade, GradeRequired);
    EXPECT_EQ(result[4].infoType, InfoFile);
    EXPECT_TRUE(result.IsShowTitle());

    lists.Hide();
    lists.Hide();
    EXPECT_FALSE(lists.Possible().accept) << "an empty list can't be taken over";
}

TEST(SetUpRules, BoundTheNamesOfLabels)
{
    LabelNames names;
    names[LabelFree] = ReplaceAll("xxxxxxxxxxxxxxxx", "x", "付");
    names[LabelNg2] = CString(32, 'a');
    EXPECT_EQ(FirstLongName(names), std::nullopt);
    names[LabelFree] += 'x';
    EXPECT_EQ(FirstLongName(names), LabelFree);
    names[LabelNg3] = CString(33, 'a');
    EXPECT_EQ(FirstLongName(names), LabelNg3);
}

TEST(SetUpRules, SortAsChosen)
{
    ToviSortCondition before;
    before.ExecSort(true);
    before.SetKeyItem("撮影箇所");
    before.Ascending(false);
    EXPECT_EQ(SortChoiceOf(before), (SortChoice{true, "", true})) << "not among the keys";
    EXPECT_TRUE(Sorted(before, SortChoiceOf(before)) == before);
    const ToviSortCondition off = Sorted(before, {false, "シリアル番号", true});
    EXPECT_FALSE(off.IsExecSort());
    EXPECT_EQ(off.GetKeyItem(), "");
    EXPECT_TRUE(off.IsAscending());
    const ToviSortCondition on = Sorted(off, {true, "シリアル番号", true});
    EXPECT_TRUE(on.IsExecSort());
    EXPECT_EQ(on.GetKeyItem(), "シリアル番号");
    EXPECT_FALSE(on.IsAscending());
}

/// The settings dialog over those of a delivery.
struct OpenSettings
{
    OpenSettings() { sample.document->Load(); }

    ToviData& Document() const { return *sample.document; }
    ToviSetUpDlg Dialog() const
    {
        return {*Document().GetLabelManager(), Document().GetVisualSetting(),
                Document().GetSortCondition(), *Document().GetItemManager(), nullptr};
    }

    OpenedSample sample{DeliveryBuilder({.photos = 1, .drawings = 0, .images = false})};
};

TEST(SetUpDialog, GivesBackWhatItIsGiven)
{
    OpenSettings settings;
    ToviSetUpDlg dialog = settings.Dialog();
    EXPECT_TRUE(RunDialog(dialog, [&dialog] { OkButton(dialog).click(); }));
    const ToviData& document = settings.Document();
    EXPECT_TRUE(dialog.GetLabelMngr() == *settings.Document().GetLabelManager());
    EXPECT_TRUE(dialog.GetVisualSetting() == document.GetVisualSetting());
    EXPECT_TRUE(dialog.GetItemManager().GetItemShowSettings() ==
                settings.Document().GetItemManager()->GetItemShowSettings());
}

TEST(SetUpDialog, EditsEverySetting)
{
    OpenSettings settings;
    ToviSetUpDlg dialog = settings.Dialog();
    EXPECT_TRUE(RunDialog(dialog, [&dialog] {
        for (const int id : {1079, 1070, 1081, 1130}) Control<QRadioButton>(dialog, id).click();
        EXPECT_FALSE(Control<QRadioButton>(dialog, 1085).isEnabled()) << "a list has no pages";
        for (const int id : {1078, 1085, 1073}) Control<QRadioButton>(dialog, id).click();
        Control<QComboBox>(dialog, 1071).setCurrentIndex(1);
        Control<QLineEdit>(dialog, 1065).setText(QStringLiteral("要確認"));
        EXPECT_FALSE(Control<QPushButton>(dialog, 1147).isEnabled());
        Control<QAbstractButton>(dialog, 1050).click();
        EXPECT_TRUE(Control<QPushButton>(dialog, 1147).isEnabled());
        OkButton(dialog).click();
    }));
    const Setting& setting = dialog.GetVisualSetting();
    EXPECT_EQ(setting.GetDivType(), Setting::DivideSix);
    EXPECT_EQ(setting.GetImageTextArrange(), Setting::TextHidden);
    EXPECT_EQ(setting.GetTitleShowType(), Setting::TitleFileName);
    EXPECT_FALSE(setting.GetVisibleComment());
    EXPECT_TRUE(setting.GetDoEditCheck());
    EXPECT_STREQ(dialog.GetLabelMngr().GetLabelAttribute(LabelNg2).GetName(), "要確認");
    EXPECT_EQ(SortChoiceOf(dialog.GetSortCondition()), (SortChoice{true, "シリアル番号", true}));
}

TEST(SetUpDialog, StaysWithANameThatIsTooLong)
{
    OpenSettings settings;
    ToviSetUpDlg dialog = settings.Dialog();
    EXPECT_FALSE(RunDialog(dialog, [&dialog] {
        auto& name = Control<QLineEdit>(dialog, 1083);
        name.setText(QString(33, u'a'));
        OkButton(dialog).click();
        EXPECT_TRUE(name.isVisible());
        EXPECT_EQ(dialog.focusWidget(), &name);
        EXPECT_EQ(name.selectedText().size(), 33);
    }));
    EXPECT_THAT(Texts(settings.sample.services.user.Messages()),
                ElementsAre("付箋名が長すぎます。(半角)32文字以下に再設定してください。"));
    EXPECT_TRUE(dialog.GetLabelMngr() == *settings.Document().GetLabelManager());
}

TEST(SetUpDialog, ShowsTheItemsThatWereChosen)
{
    OpenSettings settings;
    ToviSetUpDlg dialog = settings.Dialog();
    RunDialog(dialog, [&dialog] {
        const auto& shown = Control<QListWidget>(dialog, 1056);
        const QString first = shown.item(0)->text();
        for (const bool accepts : {false, true}) {
            QTimer::singleShot(0, &dialog, [accepts] {
                QWidget& items = *QApplication::activeModalWidget();
                Control<QListWidget>(items, 1090).setCurrentRow(0);
                Control<QPushButton>(items, 1094).click();
                items.findChild<QDialogButtonBox*>()
                    ->button(accepts ? QDialogButtonBox::Ok : QDialogButtonBox::Cancel)
                    ->click();
            });
            Control<QPushButton>(dialog, 1057).click();
            EXPECT_EQ(shown.item(accepts ? 1 : 0)->text(), first);
        }
        OkButton(dialog).click();
    });
    const ToviItemShowSettings& items = dialog.GetVisualSetting().GetItemShowSettings();
    EXPECT_TRUE(items == dialog.GetItemManager().GetItemShowSettings());
    EXPECT_EQ(dialog.GetVisualSetting().GetVisibleControlValue(), items.IsBold("施工管理値"));
}

TEST(ItemDialog, CannotBeTakenOverWithoutAnItem)
{
    const TestHost host;
    ToviItemManager manager;
    manager.SetItemShowSettings(SomeItems());
    ToviItemSetUpDlg dialog(&manager, nullptr);
    EXPECT_TRUE(RunDialog(dialog, [&dialog] {
        auto& shown = Control<QListWidget>(dialog, 1090);
        shown.setCurrentRow(1);
        Control<QPushButton>(dialog, 1092).click();
        EXPECT_TRUE(Control<QListWidget>(dialog, 1097).isVisible());
        Control<QPushButton>(dialog, 1092).click();
        EXPECT_FALSE(OkButton(dialog).isEnabled());
        QTest::keyClick(&dialog, Qt::Key_Return);
        EXPECT_TRUE(dialog.isVisible());
        Control<QPushButton>(dialog, 1091).click();
        OkButton(dialog).click();
    }));
    EXPECT_EQ(manager.GetItemShowSettings()[0].title, "b");
    EXPECT_FALSE(manager.GetItemShowSettings().IsBold("d"));
}

TEST(ImageTypeDialog, TakesTheTypesInTheOrderOfTheList)
{
    const TempFolder temp;
    Standins::Install("JACICCHS", temp.MakeFolder("program"));
    TestHost host;
    InstallHostServices({&host.user, &host.profile, "Tovi", temp.Path("program/tovi")});
    ToviSelectImageTypeDlg dialog(nullptr);
    CWordArray types;
    types.Add(1);
    dialog.SetTypes(types);
    EXPECT_TRUE(RunDialog(dialog, [&dialog] {
        auto& list = *dialog.findChild<QListWidget*>();
        ASSERT_EQ(list.count(), 3);
        list.item(2)->setCheckState(Qt::Unchecked);
        OkButton(dialog).click();
        EXPECT_TRUE(dialog.isVisible());
        for (const int row : {2, 1, 0}) list.item(row)->setCheckState(Qt::Checked);
        OkButton(dialog).click();
    }));
    EXPECT_THAT(Texts(host.user.Messages()), ElementsAre("一つ以上チェックを付けてください。"));
    EXPECT_EQ(EditCheckTypesText(dialog.GetTypes()), "0,2,1");
}
} // namespace
