#pragma once

#include "platform/text/Text.h"

/// A title with a value, as the display side wants them.
class TOVI_EXPORT ToviTextPair
{
public:
    ToviTextPair() = default;
    ToviTextPair(const char* itemText, const char* valueText) : item(itemText), value(valueText) {}
    ToviTextPair(const ToviTextPair&) = default;
    ToviTextPair& operator=(const ToviTextPair&) = default;
    virtual ~ToviTextPair() = default;

    virtual const CString& GetItem() const { return item; }
    virtual const CString& GetValue() const { return value; }
    virtual void UpdateItemAndValue(const char* itemText, const char* valueText)
    {
        item = itemText;
        value = valueText;
    }

private:
    CString item;
    CString value;
};

/// Pairs in the order in which they are shown. All comparisons are exact.
class TOVI_EXPORT ToviTextPairArray : public CArray<ToviTextPair>
{
public:
    ToviTextPairArray() = default;
    ToviTextPairArray(const ToviTextPairArray&) = default;
    ToviTextPairArray& operator=(const ToviTextPairArray&) = default;
    virtual ~ToviTextPairArray() = default;

    /// Replaces \p out by all item texts.
    void GetItems(CStringArray& out) const;
    /// Replaces \p out by all values.
    void GetValues(CStringArray& out) const;
    void ToArray(CStringArray& items, CStringArray& values) const;
    /// Copies the value of the first pair with this item text; without one \p value stays as it is.
    void GetValue(const char* item, CString& value) const;
    /// Appends the value of every pair with this item text to \p values.
    void GetValue(const CString& item, CStringArray& values) const;
    bool IsExistItem(const CString& item) const;
};
