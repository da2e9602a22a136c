#include "windows/setup/ToviSetUpDlg.h"

#include "imagefacts/ToviControlValueArray.h"
#include "platform/controls/ScrolledPage.h"
#include "platform/host/HostServices.h"
#include "windows/comments/CommentTexts.h"
#include "windows/setup/SetUpCheckPage.h"
#include "windows/setup/SetUpDisplayPage.h"
#include "windows/setup/SetUpItemPage.h"
#include "windows/setup/SetUpKeyPage.h"
#include "windows/setup/SetUpLabelPage.h"
#include "windows/setup/SetUpTextPage.h"
#include "windows/setup/ToviItemSetUpDlg.h"

#include <QDialogButtonBox>
#include <QTabWidget>
#include <QVBoxLayout>

ToviSetUpDlg::ToviSetUpDlg(const ToviLabelManager& theLabels,
                           const ToviPhotoCtrlVisualSetting& theSetting,
                           const ToviSortCondition& theSort, const ToviItemManager& theItems,
                           QWidget* parent)
    : WenDialog(parent), labels(theLabels), setting(theSetting), sort(theSort), items(theItems),
      pages(new QTabWidget), labelTab(nullptr), displayPage(new SetUpDisplayPage),
      itemPage(new SetUpItemPage), labelPage(new SetUpLabelPage), textPage(new SetUpTextPage),
      keyPage(new SetUpKeyPage), checkPage(new SetUpCheckPage)
{
    setWindowTitle(QStringLiteral("設定"));
    AddPage(displayPage, QStringLiteral("写真の表示"));
    AddPage(itemPage, QStringLiteral("表示項目と表示順"));
    labelTab = AddPage(labelPage, QStringLiteral("付箋名称"));
    AddPage(textPage, QStringLiteral("定型文"));
    AddPage(keyPage, QStringLiteral("キー"));
    AddPage(checkPage, QStringLiteral("画像加工検知"));
    connect(itemPage, &SetUpItemPage::ItemsRequested, this,
            &ToviSetUpDlg::OnBnClickedItemChangeButton);
    auto* const column = new QVBoxLayout(this);
    column->addWidget(pages, 1);
    column->addWidget(MakeOkCancel());
}

ScrolledPage* ToviSetUpDlg::AddPage(QWidget* page, const QString& title)
{
    auto* const tab = new ScrolledPage(page);
    pages->addTab(tab, title);
    return tab;
}

void ToviSetUpDlg::OnInitDialog()
{
    labelPage->Show(labels);
    itemPage->ShowItems(items.GetItemShowSettings());
    displayPage->Show(setting);
    checkPage->Show(setting);
    textPage->Show(CommentTexts::All());
    itemPage->ShowSort(sort);
    resize(sizeHint());
}

void ToviSetUpDlg::OnBnClickedItemChangeButton()
{
    ToviItemSetUpDlg dialog(&items, this);
    if (dialog.DoModal()) itemPage->ShowItems(items.GetItemShowSettings());
}

void ToviSetUpDlg::OnOK()
{
    if (RefuseLongNames()) return;
    UpdateLabelManager();
    UpdateVisualSetting();
    sort = Sorted(sort, itemPage->GetSort());
    items.Save();
    CommentTexts::Replace(textPage->Texts());
    keyPage->Take();
    WenDialog::OnOK();
}

bool ToviSetUpDlg::RefuseLongNames()
{
    const auto slot = FirstLongName(labelPage->GetNames());
    if (!slot) return false;
    const HostServices& host = GetHostServices();
    host.userInterface->ShowMessage("付箋名が長すぎます。(半角)32文字以下に再設定してください。",
                                    host.applicationName, MessageButtons::Ok, MessageIcon::Warning);
    pages->setCurrentWidget(labelTab);
    labelPage->FocusName(*slot);
    labelTab->ensureWidgetVisible(focusWidget());
    return true;
}

void ToviSetUpDlg::UpdateLabelManager()
{
    const LabelNames names = labelPage->GetNames();
    for (unsigned int slot = 0; slot < labelCount; ++slot) {
        labels.GetLabelAttribute(slot).SetName(names[slot].c_str());
    }
}

void ToviSetUpDlg::UpdateVisualSetting()
{
    displayPage->Take(setting);
    checkPage->Take(setting);
    setting.SetItemShowSettings(items.GetItemShowSettings());
    setting.SetVisibleControlValue(setting.GetItemShowSettings().IsBold(controlValueTitle));
}
