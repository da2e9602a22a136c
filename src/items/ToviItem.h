#pragma once

#include "platform/text/Text.h"

/// One element that was read from PHOTO.XML: which definition it belongs to, and its text as it
/// stands in the file. Empty for an element that was expected and is not there.
class TOVI_EXPORT ToviItem
{
public:
    ToviItem() = default;
    /// \p index is the index of the item's definition in ToviItemDef.
    ToviItem(int index, CString text) : defIndex(index), value(std::move(text)) {}

    int GetDefIndex() const { return defIndex; }
    void SetDefIndex(int index) { defIndex = index; }
    const CString& GetValue() const { return value; }
    void GetValue(CString& out) const { out = value; }
    void SetValue(const char* text) { value = text; }

private:
    int defIndex = -1;
    CString value;
};

/// Items in the order of the file. The order counts: repeated values are told apart by it alone.
class TOVI_EXPORT ToviItemArray : public CArray<ToviItem>
{
public:
    ToviItemArray() = default;
    ToviItemArray(const ToviItemArray&) = default;
    ToviItemArray& operator=(const ToviItemArray&) = default;
    ToviItemArray(ToviItemArray&&) noexcept = default;
    ToviItemArray& operator=(ToviItemArray&&) noexcept = default;
    virtual ~ToviItemArray() = default;
};
