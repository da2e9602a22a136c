#pragma once

#include "delivery/ToviData.h"
#include "extraction/TextSearch.h"
#include "extraction/ToviSortCondition.h"
#include "items/ToviItemDef.h"
#include "items/ToviItemManager.h"
#include "items/ToviPhotoCtrlVisualSetting.h"
#include "photos/DeliveryFiles.h"
#include "photos/ItemColumns.h"
#include "photos/PhotoPaths.h"
#include "photos/TamperCheck.h"
#include "photos/ToviPhotoArray.h"
#include "review/LabelEdits.h"
#include "review/ToviLabelManager.h"

struct ToviData::Parts
{
    explicit Parts(LabelEdits::Listener listener) : labelEdits(photos, std::move(listener)) {}

    ToviPhotoArray photos;
    ItemColumns columns{photos};
    LabelEdits labelEdits;
    ToviItemDef itemDef;
    PhotoPathItems pathItems;
    TextSearch search{photos, itemDef, pathItems};
    /// Of the photographs' names (see RecordOrigin); empty until somebody asks.
    CString namesDigest;
    ToviLabelManager labelManager;
    std::unique_ptr<ToviPhotoCtrlVisualSetting> visualSetting;
    std::unique_ptr<ToviSortCondition> sortCondition;
    std::unique_ptr<ToviItemManager> itemManager;
    std::shared_ptr<TamperCheck> tamperCheck = std::make_shared<TamperCheck>(CWordArray());
    /// Null until it is asked for.
    std::shared_ptr<const DeliveryFiles> files;
};
