#pragma once

#include "items/ToviItemShowSetting.h"
#include "platform/text/CArray.h"

/// The items that an information list may show, in the order in which it shows them.
class TOVI_EXPORT ToviItemShowSettings : public CArray<ToviItemShowSetting>
{
public:
    ToviItemShowSettings() = default;
    ToviItemShowSettings(const ToviItemShowSettings&) = default;
    virtual ~ToviItemShowSettings() = default;
    /// A list that is assigned to itself ends up empty.
    ToviItemShowSettings& operator=(const ToviItemShowSettings& other);

    /// Equal lists have the same items in the same order.
    virtual bool operator==(const ToviItemShowSettings& other) const;
    virtual bool operator!=(const ToviItemShowSettings& other) const { return !(*this == other); }

    using CArray::Add;
    /// Appends an item and returns its position.
    int Add(const char* title, bool bold, int index, Grade grade, InfoType infoType);
    /// The position of the first item with exactly this title, or -1.
    int Find(const char* title) const;
    /// Whether the item is shown. A position outside the list throws InvalidArgument.
    bool IsBold(int position) const { return GetAt(position).bold; }
    /// Whether the first item with this title is shown; false when there is none.
    bool IsBold(const char* title) const;
    /// A position outside the list throws InvalidArgument.
    const char* Title(int position) const { return GetAt(position).title.c_str(); }

    /// Without titles the list's column of titles has no width.
    bool IsShowTitle() const { return showTitle; }
    void SetShowTitle(bool show) { showTitle = show; }

private:
    bool showTitle = true;
};
