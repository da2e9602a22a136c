#pragma once

#include "platform/text/Text.h"

#include <QSize>

#include <optional>

class QImage;

/// Any number of threads may read pictures at once.

/// The dimensions in the header of the image file \p path; nothing when it is no image.
std::optional<QSize> ReadImageSize(const CString& path);

/// Decodes the image file \p path, reduced so that its longer side has at most \p longestSide
/// pixels (0: not reduced), and turns it as its Exif orientation says. A null image when that
/// fails.
QImage ReadImage(const CString& path, int longestSide);

/// The same, reduced to \p mostPixels pixels where it has more; \p wholeSize becomes the size of
/// the whole picture.
QImage ReadImageUpTo(const CString& path, qint64 mostPixels, QSize& wholeSize);

/// The picture of the SVG file \p path with all its layers, as large as it fits into \p within but
/// never enlarged; an empty size sets no bounds. Where it can't be drawn its embedded photograph
/// stands for it. A null image when that is missing too or cut off, or when a picture in the file
/// lies outside of it.
QImage ReadSvgImage(const CString& path, const QSize& within);
