#pragma once

#include "platform/pictures/PictureFault.h"
#include "platform/text/Text.h"

#include <QImage>

#include <optional>

/// Any number of threads may read pictures at once.

/// The dimensions in the header of the image file \p path; nothing when it is no image.
std::optional<QSize> ReadImageSize(const CString& path);

/// Decodes the image file \p path, reduced so that its longer side has at most \p longestSide
/// pixels (0: not reduced), and turns it as its Exif orientation says. A null image when that
/// fails.
QImage ReadImage(const CString& path, int longestSide);

/// How far a picture is reduced.
struct PictureBounds
{
    /// In pixels; 0: any.
    int longestSide = 0;
    /// 0: any number of pixels.
    qint64 mostPixels = 0;
    /// One with no more pixels stays whole.
    qint64 fewPixels = 0;
};

/// A picture, and how large it is in its file.
struct FilePicture
{
    /// Null when it can't be decoded.
    QImage image;
    QSize wholeSize;
    PictureFault fault = PictureFault::None;
};

/// The same within \p bounds; of a picture that was cut off what is there (see
/// ImageSource::ReadCut).
FilePicture ReadPicture(const CString& path, const PictureBounds& bounds);

/// What its beginning and its end tell of the file \p path; it is read whole only where they leave
/// doubts. Of an SVG file only whether it can be read.
PictureFault ProbePicture(const CString& path);

/// \p whole within \p bounds.
FilePicture ReducePicture(const QImage& whole, const PictureBounds& bounds);

/// The picture of the SVG file \p path with all its layers, as large as it fits into \p within but
/// never enlarged; an empty size sets no bounds. Where it can't be drawn its embedded photograph
/// stands for it. A null image when that is missing too or cut off, or when a picture in the file
/// lies outside of it.
QImage ReadSvgImage(const CString& path, const QSize& within);
