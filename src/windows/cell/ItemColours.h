#pragma once

#include "items/ToviItemDef.h"
#include "items/ToviItemShowSettings.h"

#include <optional>
#include <unordered_map>

/// The colours of the titles in an information list, by what kind of item a title is.
class ItemColours
{
public:
    /// The colour (0x00BBGGRR) of the items of the delivery of one grade, or of the items of one
    /// kind; nothing where titles are not coloured by it.
    static std::optional<unsigned long> Of(Grade grade);
    static std::optional<unsigned long> Of(InfoType type);

    bool IsEmpty() const { return colours.empty(); }
    void Clear() { colours.clear(); }
    /// Adds the titles of the definitions, coloured by their grade.
    void AddDefinitions(const ToviItemDef& definitions);
    /// Adds the titles of file and Exif items.
    void AddShowSettings(const ToviItemShowSettings& settings);
    /// The colour (0x00BBGGRR) of \p title as it was added first; nothing when it never was.
    std::optional<unsigned long> Find(const CString& title) const;

private:
    std::unordered_map<CString, unsigned long> colours;
};
