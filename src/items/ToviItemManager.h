#pragma once

#include "items/ToviItemShowSettings.h"

#include <optional>
#include <unordered_set>

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
    /// Shows and hides the items of the list here as the profile store says now.
    void TakeOver();
    /// Writes the titles of the items that are hidden in the list here. An item that was neither
    /// shown nor hidden since Load or Save stays what other programs made of it meanwhile. False
    /// when the titles could not be kept.
    bool Save();

private:
    /// The titles to write where the store has \p stored, with folded letter case.
    CString HiddenAmong(const std::unordered_set<CString>& stored) const;

    ToviItemShowSettings itemShowSettings;
    /// The titles, with folded letter case, that were hidden when the store was last read or
    /// written here; nothing before that.
    std::optional<std::unordered_set<CString>> known;
};
