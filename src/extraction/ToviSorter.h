#pragma once

#include "photos/ToviPhotoRef.h"
#include "platform/text/Text.h"

#include <vector>

class ItemColumns;
class ToviItemDef;

/// Orders photographs by the value of one item; serves one sort. Texts go by
/// the codes of code page 932, the values of シリアル番号 by their number. Equal values keep the
/// order of the actual array; a descending sort is the exact reverse of an ascending one.
class TOVI_EXPORT ToviSorter
{
public:
    /// What one entry is sorted by.
    struct Data
    {
        /// Photo index.
        int index = -1;
        /// The place of its value among those of all photographs; equal ones share it.
        int number = -1;
    };

    ToviSorter() = default;
    /// Of the document with the columns \p itemColumns and the definitions \p definitions; both
    /// outlive the sorter.
    ToviSorter(const ItemColumns& itemColumns, const ToviItemDef& definitions)
        : columns(&itemColumns), itemDef(&definitions)
    {}
    virtual ~ToviSorter() = default;

    /// Looks up the values of the item titled \p key. An index in \p ref that is
    /// outside of the actual array throws InvalidArgument. With an empty \p ref nothing happens.
    /// Without an item of that title all values are empty.
    virtual void PrepareSort(const CString& key, const ToviPhotoRef& ref);
    /// Puts what was prepared into \p ref in its order; leaves \p ref when that is nothing.
    virtual void QuickSort(bool ascending, ToviPhotoRef& ref);
    virtual const Data* EndSort() const { return nullptr; }

    /// Negative when \p a stands before \p b in the ascending order, else positive. The descending
    /// order is its exact mirror.
    static int CompareUp(const Data& a, const Data& b)
    {
        if (a.number != b.number) return a.number < b.number ? -1 : 1;
        return a.index < b.index ? -1 : 1;
    }

private:
    const ItemColumns* columns = nullptr;
    const ToviItemDef* itemDef = nullptr;
    std::vector<Data> entries;
};
