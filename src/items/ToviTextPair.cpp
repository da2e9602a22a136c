#include "items/ToviTextPair.h"

#include <algorithm>

void ToviTextPairArray::GetItems(CStringArray& out) const
{
    out.RemoveAll();
    for (const ToviTextPair& pair : *this) out.Add(pair.GetItem());
}

void ToviTextPairArray::GetValues(CStringArray& out) const
{
    out.RemoveAll();
    for (const ToviTextPair& pair : *this) out.Add(pair.GetValue());
}

void ToviTextPairArray::ToArray(CStringArray& items, CStringArray& values) const
{
    GetItems(items);
    GetValues(values);
}

void ToviTextPairArray::GetValue(const char* item, CString& value) const
{
    const auto found = std::find_if(
        begin(), end(), [item](const ToviTextPair& pair) { return pair.GetItem() == item; });
    if (found != end()) value = found->GetValue();
}

void ToviTextPairArray::GetValue(const CString& item, CStringArray& values) const
{
    for (const ToviTextPair& pair : *this) {
        if (pair.GetItem() == item) values.Add(pair.GetValue());
    }
}

bool ToviTextPairArray::IsExistItem(const CString& item) const
{
    return std::any_of(begin(), end(),
                       [&item](const ToviTextPair& pair) { return pair.GetItem() == item; });
}
