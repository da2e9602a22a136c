#pragma once

#include "extraction/ToviSortCondition.h"
#include "items/ToviItemManager.h"
#include "items/ToviPhotoCtrlVisualSetting.h"
#include "platform/controls/WenDialog.h"
#include "review/ToviLabelManager.h"

class QTabWidget;
class ScrolledPage;
class SetUpCheckPage;
class SetUpDisplayPage;
class SetUpItemPage;
class SetUpKeyPage;
class SetUpLabelPage;
class SetUpTextPage;

/// Lets the user edit the settings (設定). It works on copies, which the host takes over after OK.
class TOVI_EXPORT ToviSetUpDlg : public WenDialog
{
    Q_OBJECT

public:
    ToviSetUpDlg(const ToviLabelManager& theLabels, const ToviPhotoCtrlVisualSetting& theSetting,
                 const ToviSortCondition& theSort, const ToviItemManager& theItems,
                 QWidget* parent);

    const ToviLabelManager& GetLabelMngr() const { return labels; }
    const ToviPhotoCtrlVisualSetting& GetVisualSetting() const { return setting; }
    const ToviSortCondition& GetSortCondition() const { return sort; }
    const ToviItemManager& GetItemManager() const { return items; }

protected:
    void OnInitDialog() override;
    void OnOK() override;

private:
    ScrolledPage* AddPage(QWidget* page, const QString& title);
    void OnBnClickedItemChangeButton();
    bool RefuseLongNames();
    void UpdateLabelManager();
    void UpdateVisualSetting();

    ToviLabelManager labels;
    ToviPhotoCtrlVisualSetting setting;
    ToviSortCondition sort;
    ToviItemManager items;
    QTabWidget* pages;
    ScrolledPage* labelTab;
    SetUpDisplayPage* displayPage;
    SetUpItemPage* itemPage;
    SetUpLabelPage* labelPage;
    SetUpTextPage* textPage;
    SetUpKeyPage* keyPage;
    SetUpCheckPage* checkPage;
};
