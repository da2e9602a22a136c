#pragma once

#include "platform/pictures/LumImage.h"

#include <QImage>

struct LumImage::Picture
{
    QImage image;
};

/// Between a picture of the system's and one of Qt's, which share their pixels.
struct LumPixels
{
    /// A null image for an empty picture.
    static QImage Of(const LumImage& image);
    /// An empty picture for a null image.
    static LumImage From(QImage image);
};

/// The quality in percent that the libraries of JPEG files know for one of LumImage::Encode.
int JpegPercent(unsigned quality);
