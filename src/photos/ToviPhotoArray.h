#pragma once

#include "photos/ToviPhoto.h"

/// Photographs that the array owns: they are deleted with it.
class TOVI_EXPORT ToviPhotoArray : public CArray<ToviPhoto*>
{
public:
    ToviPhotoArray() = default;
    ToviPhotoArray(const ToviPhotoArray&) = delete;
    ToviPhotoArray& operator=(const ToviPhotoArray&) = delete;
    virtual ~ToviPhotoArray();

    void AllReleaseImage();
    /// The first photograph whose image path is \p path without regard to letter case, or null.
    ToviPhoto* GetData(const CString& path) const;
};
