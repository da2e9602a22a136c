#include "document/ToviPhotoRef.h"

int ToviPhotoRef::Add(int photoIndex)
{
    const auto [place, isNew] = positions.try_emplace(photoIndex, indexes.GetSize());
    if (isNew) indexes.Add(photoIndex);
    return place->second;
}

int ToviPhotoRef::Append(const ToviPhotoRef& other)
{
    if (other.IsEmpty()) return -1;
    if (&other == this) return 0;
    const int first = Add(other[0]);
    for (const int photoIndex : other) Add(photoIndex);
    return first;
}

void ToviPhotoRef::Assign(const CArray<int>& ordered)
{
    RemoveAll();
    indexes.Reserve(ordered.GetSize());
    positions.reserve(static_cast<std::size_t>(ordered.GetSize()));
    for (const int photoIndex : ordered) Add(photoIndex);
}

void ToviPhotoRef::RemoveAll()
{
    indexes.RemoveAll();
    positions.clear();
}

int ToviPhotoRef::Find(int photoIndex) const
{
    const auto place = positions.find(photoIndex);
    return place == positions.end() ? -1 : place->second;
}
