#pragma once

#include "platform/Text.h"

#include <QSize>

#include <optional>

class QImage;

/// The dimensions in the header of the image file \p path; nothing when it is no image.
std::optional<QSize> ReadImageSize(const CString& path);

/// Decodes the image file \p path, reduced so that its longer side has at most \p longestSide
/// pixels (0: not reduced), and turns it as its Exif orientation says. A null image when that
/// fails.
QImage ReadImage(const CString& path, int longestSide);
