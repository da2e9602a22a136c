#pragma once

#include "platform/text/Export.h"
#include "windows/pictures/PictureNames.h"

#include <QIcon>
#include <QPixmap>

#include <vector>

/// The picture as an icon. It is drawn anew for each size, so that it is sharp at every scaling of
/// the screen, and pale where what it stands on is disabled.
TOVI_EXPORT QIcon PictureIcon(PictureName name);

/// All pictures of a \p number as icons, by image index. Throws as PicturesOf does.
TOVI_EXPORT std::vector<QIcon> PictureIcons(int number);

/// The picture as large as fits into \p size, in the middle of it and transparent beside it.
/// \p size counts logical pixels, each of \p scale device pixels.
TOVI_EXPORT QPixmap PicturePixmap(PictureName name, const QSize& size, qreal scale);

/// The size that the picture was drawn for, in logical pixels. Where a layout takes the size of a
/// picture for a measure, this is it.
TOVI_EXPORT QSize PictureSize(PictureName name);
