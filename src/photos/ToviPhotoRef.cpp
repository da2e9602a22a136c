#include "photos/ToviPhotoRef.h"

int ToviPhotoRef::Add(int photoIndex)
{
    if (const int known = Find(photoIndex); known != -1) return known;
    positions.emplace(photoIndex, indexes.GetSize());
    return indexes.Add(photoIndex);
}

int ToviPhotoRef::Append(const ToviPhotoRef& other)
{
    if (other.IsEmpty()) return -1;
    if (&other == this) return 0;
    const int first = Add(other[0]);
    for (const int photoIndex : other) Add(photoIndex);
    return first;
}

void ToviPhotoRef::Assign(CArray<int> ordered)
{
    indexes = std::move(ordered);
    positions.clear();
}

void ToviPhotoRef::RemoveAll()
{
    indexes.RemoveAll();
    positions.clear();
}

int ToviPhotoRef::Find(int photoIndex) const
{
    const auto place = Positions().find(photoIndex);
    return place == positions.end() ? -1 : place->second;
}

const std::unordered_map<int, int>& ToviPhotoRef::Positions() const
{
    if (positions.empty()) {
        positions.reserve(static_cast<std::size_t>(indexes.GetSize()));
        for (int position = 0; position < indexes.GetSize(); ++position) {
            positions.emplace(indexes[position], position);
        }
    }
    return positions;
}
