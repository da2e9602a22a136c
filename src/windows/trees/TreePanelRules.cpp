#include "windows/trees/TreePanelRules.h"

#include "items/ToviPhotoCtrlVisualSetting.h"
FolderTreeReaction FolderTreeReactionTo(ToviData::UpdateHint hint, int shownType, int type)
{
    switch (hint) {
    case ToviData::HintInitialize:
        return FolderTreeReaction::Rebuild;
    case ToviData::HintSettingsChanged:
        return shownType == type && shownType != noTreeType ? FolderTreeReaction::None
                                                            : FolderTreeReaction::Rebuild;
    case ToviData::HintRefresh1:
    case ToviData::HintRefresh8:
    case ToviData::HintRefresh11:
        return FolderTreeReaction::Clear;
    default:
        return FolderTreeReaction::None;
    }
}

LabelTreeReaction LabelTreeReactionTo(ToviData::UpdateHint hint, bool isVisible)
{
    switch (hint) {
    case ToviData::HintInitialize:
        return {.initialize = true};
    case ToviData::HintPhotoInfoChanged:
    case ToviData::HintSettingsChanged:
        return {.recount = true};
    case ToviData::HintLabelsChanged:
        return {.recount = true, .reselect = isVisible};
    default:
        return {};
    }
}

FolderTreeImages FolderTreeImagesOf(int type)
{
    switch (type) {
    case ToviPhotoCtrlVisualSetting::TreeWorkTypeFull:
        return {801, 6};
    case ToviPhotoCtrlVisualSetting::TreeWorkType:
        return {808, 4};
    default:
        return {802, 2};
    }
}

CString LabelTreeText(const CString& name, int count)
{
    return count > 0 ? name + Format(" <%d>", count) : name;
}
