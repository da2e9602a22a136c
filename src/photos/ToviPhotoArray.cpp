#include "photos/ToviPhotoArray.h"

#include <algorithm>

ToviPhotoArray::~ToviPhotoArray()
{
    for (const ToviPhoto* photo : *this) delete photo;
}

void ToviPhotoArray::AllReleaseImage()
{
    for (ToviPhoto* photo : *this) photo->ReleaseImage();
}

ToviPhoto* ToviPhotoArray::GetData(const CString& path) const
{
    const CString folded = FoldCase(path);
    const auto found = std::find_if(begin(), end(), [&folded](ToviPhoto* photo) {
        return FoldCase(photo->GetImagePath()) == folded;
    });
    return found == end() ? nullptr : *found;
}
