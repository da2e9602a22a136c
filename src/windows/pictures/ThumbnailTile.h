#pragma once

#include "photos/ToviPhoto.h"

#include <QIcon>
#include <QImage>

#include <vector>

class QPainter;

/// Makes the tiles of the thumbnail list: a sheet with the photograph, and what is known of it.
class TOVI_EXPORT ThumbnailTile
{
public:
    ThumbnailTile();

    /// The size of every tile, in pixels of the layout.
    static QSize Size();

    /// The tile of \p photo with its picture \p image, with \p scale device pixels to each pixel of
    /// the layout. An empty picture, of a file that isn't one, gives a tile that says so; null, one
    /// that isn't read yet, an empty sheet. A null image when there is no memory for it.
    QImage CreateThumbImage(const ToviPhoto& photo, const LumImage* image, const QString& failure,
                            double scale) const;

private:
    bool DrawPhoto(QPainter& painter, const LumImage& image, double scale) const;
    void DrawFailure(QPainter& painter, const QString& failure, bool onPicture) const;
    void AddInfoBmp(QPainter& painter, const ToviPhoto& photo) const;

    std::vector<QIcon> infoIcons;
    QSize infoIconSize;
};
