#pragma once

#include "document/ToviPhotoRef.h"
#include "platform/Text.h"

#include <vector>

class ToviData;

/// Orders the current array of a document by the value of one item; serves one sort. Texts go by
/// the codes of code page 932, the values of シリアル番号 by their number. Equal values keep the
/// order of the actual array; a descending sort is the exact reverse of an ascending one.
class TOVI_EXPORT ToviSorter
{
public:
    /// What one entry is sorted by.
    struct Data
    {
        bool numeric = false;
        /// Photo index.
        int index = -1;
        /// The key when numeric.
        int number = -1;
        /// The key when not: the bytes by which the value sorts.
        std::string text;
    };

    ToviSorter() = default;
    /// \p document outlives the sorter.
    explicit ToviSorter(ToviData* document) : data(document) {}
    virtual ~ToviSorter() = default;

    /// Reads the values of the item titled \p key. \p ref is the document's current array; one that
    /// is longer throws InvalidArgument. With an empty one nothing happens. Without an item of that
    /// title all values are empty.
    virtual void PrepareSort(const CString& key, const ToviPhotoRef& ref);
    /// Puts what was prepared into \p ref in its order; leaves \p ref when that is nothing.
    virtual void QuickSort(bool ascending, ToviPhotoRef& ref);
    virtual const Data* EndSort() const { return nullptr; }

    /// Negative when \p a stands before \p b in the ascending order, else positive. The descending
    /// order is its exact mirror. Only the flag numeric of \p a counts.
    static int CompareUp(const Data& a, const Data& b);

private:
    ToviData* data = nullptr;
    std::vector<Data> entries;
};
