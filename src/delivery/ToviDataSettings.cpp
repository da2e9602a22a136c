#include "delivery/ToviDataParts.h"
#include "imagefacts/ImageTypeChoice.h"
#include "imagefacts/ItemCandidates.h"
#include "imagefacts/RicohVerifier.h"
#include "imagefacts/ToviControlValueArray.h"
#include "platform/host/CDocument.h"

bool ToviData::Load()
{
    settingsLoaded = true;
    parts->labelManager.Load(nullptr);
    parts->visualSetting->Load();
    parts->sortCondition->Load();
    const ToviItemShowSettings items = LoadItems();
    if (items.IsEmpty()) return true;
    parts->visualSetting->SetItemShowSettings(items);
    parts->itemManager->SetItemShowSettings(items);
    parts->itemManager->Save();
    return true;
}

bool ToviData::TakeOverSettings()
{
    if (!settingsLoaded) return false;
    const ToviPhotoCtrlVisualSetting oldVisual(*parts->visualSetting);
    const ToviLabelManager oldLabels(parts->labelManager);
    const ToviSortCondition oldSort(*parts->sortCondition);
    parts->labelManager.Load(nullptr);
    parts->sortCondition->Load();
    // The titles in the store are those of the kind opened last.
    if (parts->itemDef.IsLastType()) parts->itemManager->TakeOver();
    ToviPhotoCtrlVisualSetting visual(oldVisual);
    visual.Load();
    SetVisualSetting(visual, false);
    return !(*parts->visualSetting == oldVisual && parts->labelManager == oldLabels &&
             *parts->sortCondition == oldSort);
}

ToviItemShowSettings ToviData::LoadItems()
{
    if (parts->itemDef.TypeIsCorresponding()) {
        CStringArray hidden;
        parts->itemManager->Load(hidden);
        return ItemsWithout(parts->itemDef, hidden);
    }
    const ToviItemShowSettings items = DefaultItems(parts->itemDef);
    if (items.IsBold(controlValueTitle)) parts->visualSetting->SetVisibleControlValue(true);
    return items;
}

void ToviData::SetVisualSetting(const ToviPhotoCtrlVisualSetting& setting, bool force)
{
    const bool changed = force || parts->visualSetting->IsChangeEditCheckTerm(setting);
    *parts->visualSetting = setting;
    parts->visualSetting->SetItemShowSettings(parts->itemManager->GetItemShowSettings());
    if (settingsLoaded) parts->visualSetting->Save();
    if (!changed) return;
    parts->tamperCheck = std::make_shared<TamperCheck>(
        ParseEditCheckTypes(parts->visualSetting->GetEditCheckTypes()));
    Initialize_CheckEditJPEG();
}

std::shared_ptr<TamperCheck> ToviData::GetTamperCheck() const
{
    const ToviPhotoCtrlVisualSetting& setting = *parts->visualSetting;
    const bool isAsked = setting.GetDoEditCheck() && !setting.GetEditCheckTypes().empty();
    return isAsked ? parts->tamperCheck : nullptr;
}

void ToviData::CheckEditJPEG(ToviPhoto* photo)
{
    if (const auto check = GetTamperCheck()) {
        photo->SetEditChkResult(check->Check(photo->ReadablePath()));
    }
}

void ToviData::Initialize_CheckEditJPEG()
{
    for (ToviPhoto* photo : parts->photos) photo->SetEditChkResult(ToviPhoto::EditCheckNone);
}

int ToviData::CheckEditJPEG_RICOHG600(const CString& path)
{
    const int answer = RicohVerifier().Verify(path).value_or(2);
    return answer == 0 || answer == 1 ? answer : 2;
}

void ToviData::SetManager(const ToviLabelManager& labels, const ToviItemManager& items,
                          bool withItems)
{
    parts->labelManager = labels;
    if (settingsLoaded) parts->labelManager.Save(nullptr);
    if (withItems) *parts->itemManager = items;
}

void ToviData::Initialize()
{
    parts->itemManager = std::make_unique<ToviItemManager>();
}

ToviPhotoCtrlVisualSetting* ToviData::OnCreateVisualSettings()
{
    return new ToviPhotoCtrlVisualSetting;
}
