#pragma once

#include "platform/text/CArray.h"

#include <unordered_map>

/// An ordered set of photo indexes; the type of the document's current array. It answers whether
/// and where an index stands in constant time.
class TOVI_EXPORT ToviPhotoRef
{
public:
    virtual ~ToviPhotoRef() = default;

    int GetSize() const { return indexes.GetSize(); }
    bool IsEmpty() const { return indexes.IsEmpty(); }
    /// The photo index at \p position; a position outside throws InvalidArgument.
    int operator[](int position) const { return indexes[position]; }
    auto begin() const { return indexes.begin(); }
    auto end() const { return indexes.end(); }

    /// Appends \p photoIndex unless it is there already; returns its position.
    int Add(int photoIndex);
    /// Adds each index of \p other in order; returns the position of the first one, -1 when \p
    /// other is empty.
    int Append(const ToviPhotoRef& other);
    /// Replaces the whole by \p ordered, in which no index stands twice.
    void Assign(CArray<int> ordered);
    void RemoveAll();
    /// The position of \p photoIndex, or -1.
    int Find(int photoIndex) const;

private:
    const std::unordered_map<int, int>& Positions() const;

    CArray<int> indexes;
    /// The position of each index, as far as somebody has asked: most current arrays are only
    /// walked.
    mutable std::unordered_map<int, int> positions;
};
