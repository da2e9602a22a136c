#pragma once

#include "platform/LumImage.h"

#include <QImage>

struct LumImage::Picture
{
    QImage image;
};
