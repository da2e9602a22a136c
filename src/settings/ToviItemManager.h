#pragma once

#include "settings/ToviItemShowSettings.h"

/// Owns a document's list of items to show. The profile store keeps which of them are hidden, so
/// that an item of a later delivery is shown; their order lives as long as the document.
class TOVI_EXPORT ToviItemManager
{
public:
    /// The section and entry of the profile store.
    static constexpr const char* ShowSettingSection_ = "ShowSetting";
    static constexpr const char* ShowItemsEntry_ = "Items";

    ToviItemManager() = default;
    ToviItemManager(const ToviItemManager&) = default;
    ToviItemManager& operator=(const ToviItemManager&) = default;
    virtual ~ToviItemManager() = default;

    ToviItemShowSettings& GetItemShowSettings() { return itemShowSettings; }
    const ToviItemShowSettings& GetItemShowSettings() const { return itemShowSettings; }
    void SetItemShowSettings(const ToviItemShowSettings& items) { itemShowSettings = items; }

    /// Appends the hidden titles that the profile store has to \p hidden. False when it has none.
    /// The list here stays as it is.
    bool Load(CStringArray& hidden);
    /// Writes the titles of the items that are hidden in the list here. False when they could not
    /// be kept.
    bool Save();

private:
    ToviItemShowSettings itemShowSettings;
};
