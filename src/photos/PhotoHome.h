#pragma once

#include "platform/text/Text.h"

class ToviItemDef;
struct PhotoPathItems;

/// The delivery that a photograph belongs to, as far as the photograph needs it. What is const may
/// be asked by several threads at once, as long as none changes the delivery.
class PhotoHome
{
public:
    /// The folder of PHOTO.XML, ending in a path separator.
    virtual const char* RootPath() const = 0;
    virtual ToviItemDef* GetItemDef() = 0;
    /// The items that name the files of a photograph in this delivery.
    virtual const PhotoPathItems& GetPathItems() const = 0;
    /// True when the items hold file names of an opened delivery, false when the host hands over
    /// photographs with full paths.
    virtual bool IsStandAlone() const = 0;
    /// True when \p path is a file that lies, symbolic links followed, in the delivery's folder or
    /// one that was its folder before a change of media.
    virtual bool IsFileOfDelivery(const CString& path) const = 0;

protected:
    ~PhotoHome() = default;
};
