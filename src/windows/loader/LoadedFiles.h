#pragma once

#include "imagefacts/PhotoFacts.h"
#include "photos/ToviPhoto.h"
#include "platform/pictures/PictureFault.h"
#include "platform/pictures/ReducedImages.h"
#include "windows/loader/LoadKey.h"

class DeliveryFiles;
class TamperCheck;
struct PictureBounds;

/// What the loader reads of the files of a delivery.

/// A picture, ready to be drawn.
struct LoadedPicture : Loaded
{
    LumImage image;
    /// The same with its reduced copies, as a picture of the whole size.
    ReducedImages images;
    /// Of the picture in the file.
    QSize wholeSize;
    /// As the file says, where it may be read.
    PictureFault faultInside = PictureFault::None;

    /// Why it can't be shown, or not whole.
    PictureFault Fault() const;
    /// It isn't reduced.
    bool IsWhole() const { return wholeSize == QSize(image.GetWidth(), image.GetHeight()); }
};

struct LoadedDrawing : LoadedPicture
{
    /// It is bi-level in the file.
    bool isFromMono = false;
    /// How many the file has.
    int sheets = 1;
};

struct LoadedPart : Loaded
{
    QImage image;
    /// What the image shows of the whole picture.
    QRect place;
};

struct LoadedFacts : Loaded
{
    PhotoFacts facts;
};

struct LoadedCheck : Loaded
{
    ToviPhoto::EditJPEGCheckResult result = ToviPhoto::EditCheckUnknown;
};

/// The works (see LoadWork) on the file \p path of \p files, for any thread.
LoadedPtr LoadPicture(const DeliveryFiles& files, const CString& path, const PictureBounds& bounds,
                      const CString& known);
/// \p part of the picture, reduced to about \p side pixels.
LoadedPtr LoadPart(const DeliveryFiles& files, const CString& path, const QRect& part, int side,
                   const CString& known);
/// The \p sheet (from 0) of a drawing of at most \p mostPixels.
LoadedPtr LoadDrawing(const DeliveryFiles& files, const CString& path, int sheet,
                      long long mostPixels, const CString& known);
/// \p workFolder: see ReadPhotoFacts.
LoadedPtr LoadFacts(const DeliveryFiles& files, const CString& path, const CString& workFolder,
                    const CString& known);
LoadedPtr LoadCheck(const DeliveryFiles& files, const CString& path, TamperCheck& check,
                    const CString& known);
