#pragma once

#include "platform/pictures/ToneCurve.h"

class QImage;
class QRect;

/// Sends the colours of \p image through \p curve, opacity left out. A picture with a table of
/// colours gets another table, any other one of 32 bits a pixel.
void ApplyTones(QImage& image, const ToneCurve& curve);
/// The same for those pixels of a picture of 32 bits a pixel that lie in \p part of it.
void ApplyTones(QImage& image, const ToneCurve& curve, const QRect& part);
