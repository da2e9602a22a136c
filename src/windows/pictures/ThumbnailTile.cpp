#include "windows/pictures/ThumbnailTile.h"

#include "platform/host/JapaneseFont.h"
#include "platform/pictures/LumPicture.h"
#include "windows/pictures/FaultText.h"
#include "windows/pictures/Pictures.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace
{
constexpr int sheet = 800;
constexpr int overlays = 816;
constexpr std::size_t drawingIcon = labelCount;
constexpr std::size_t unalteredIcon = labelCount + 1;
constexpr std::size_t alteredIcon = labelCount + 2;
constexpr int failTextPixels = 11;
/// The side of the square for the photograph, in the middle of the tile.
constexpr int photoSide = 130;

QRect Centred(QSize size)
{
    const QSize tile = ThumbnailTile::Size();
    return {{(tile.width() - size.width()) / 2, (tile.height() - size.height()) / 2}, size};
}

/// The size of a picture of \p pixels that fills the square, rounded.
QSize FillingSize(QSize pixels)
{
    const double scale =
        std::min(double(photoSide) / pixels.width(), double(photoSide) / pixels.height());
    const auto rounded = [scale](int side) {
        return static_cast<int>(std::floor(side * scale + 0.5));
    };
    return {rounded(pixels.width()), rounded(pixels.height())};
}
} // namespace

ThumbnailTile::ThumbnailTile()
    : infoIcons(PictureIcons(overlays)), infoIconSize(PictureSize(PicturesOf(overlays).front()))
{}

QSize ThumbnailTile::Size()
{
    static const QSize size = PictureSize(PicturesOf(sheet).front());
    return size;
}

QImage ThumbnailTile::CreateThumbImage(const ToviPhoto& photo, const LumImage* image,
                                       const QString& failure, double scale) const
{
    QImage tile = PicturePixmap(PicturesOf(sheet).front(), Size(), scale)
                      .toImage()
                      .convertToFormat(QImage::Format_ARGB32_Premultiplied);
    if (tile.isNull()) return tile;
    tile.setDevicePixelRatio(scale);
    QPainter painter(&tile);
    const bool hasPicture = image != nullptr && image->IsValid();
    const bool isSeen = hasPicture && DrawPhoto(painter, *image, scale);
    if (image != nullptr) DrawFailure(painter, failure, hasPicture);
    if (!hasPicture || isSeen) AddInfoBmp(painter, photo);
    return tile;
}

/// False, and nothing drawn, for a picture that is too narrow to be seen.
bool ThumbnailTile::DrawPhoto(QPainter& painter, const LumImage& image, double scale) const
{
    const QSize size = FillingSize({image.GetWidth(), image.GetHeight()});
    if (size.isEmpty()) return false;
    const QSize devicePixels = (QSizeF(size) * scale).toSize();
    painter.drawImage(
        Centred(size),
        LumPixels::Of(image).scaled(devicePixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    return true;
}

/// On a picture in a line at its foot.
void ThumbnailTile::DrawFailure(QPainter& painter, const QString& failure, bool onPicture) const
{
    if (failure.isEmpty()) return;
    QRect place = Centred({photoSide, photoSide});
    if (onPicture) place.setTop(place.bottom() - failTextPixels - 3);
    painter.fillRect(place, faultColor);
    QFont font(QStringList{QStringLiteral("ＭＳ 明朝"), JapaneseFamily()});
    font.setPixelSize(failTextPixels);
    painter.setFont(font);
    painter.setPen(Qt::black);
    painter.drawText(place, Qt::AlignCenter | Qt::TextWrapAnywhere, failure);
}

void ThumbnailTile::AddInfoBmp(QPainter& painter, const ToviPhoto& photo) const
{
    const auto draw = [&](std::size_t icon, int x, int y) {
        infoIcons[icon].paint(&painter, QRect({x, y}, infoIconSize));
    };
    for (unsigned int label = 0; label < labelCount; ++label) {
        const int x = 2 + static_cast<int>(label) * (infoIconSize.width() + 1);
        if (photo.IsLabelPasted(label)) draw(label, x, 0);
    }
    const int right = Size().width() - infoIconSize.width();
    const int bottom = Size().height() - infoIconSize.height() - 3;
    if (photo.GetPictureCount() > 0) draw(drawingIcon, right - 22, bottom);
    if (photo.GetEditChkResult() == ToviPhoto::EditCheckUnaltered) {
        draw(unalteredIcon, right - 2, bottom);
    } else if (photo.GetEditChkResult() == ToviPhoto::EditCheckAltered) {
        draw(alteredIcon, right - 2, bottom);
    }
}
