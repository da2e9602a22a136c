#pragma once

#include "items/Definition.h"

/// Where the value of an item comes from.
enum InfoType
{
    /// 管理項目: PHOTO.XML
    InfoDelivery = 0,
    /// ファイル情報: the file system and the picture's header
    InfoFile = 1,
    /// Exif情報
    InfoExif = 2
};

/// One item that an information list may show.
struct TOVI_EXPORT ToviItemShowSetting
{
    ToviItemShowSetting() = default;
    explicit ToviItemShowSetting(const char* itemTitle) : title(itemTitle) {}
    ToviItemShowSetting(const ToviItemShowSetting&) = default;
    ToviItemShowSetting& operator=(const ToviItemShowSetting&) = default;
    virtual ~ToviItemShowSetting() = default;

    virtual bool operator==(const ToviItemShowSetting& other) const;
    virtual bool operator!=(const ToviItemShowSetting& other) const { return !(*this == other); }
    virtual void Bold(bool shown) { bold = shown; }

    CString title;
    /// The item is shown. The name has nothing to do with a typeface.
    bool bold = false;
    /// The definition index of an item of the delivery; the number of definitions for the others.
    int index = -1;
    Grade grade = GradeOptional;
    InfoType infoType = InfoDelivery;
};
