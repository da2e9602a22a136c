#include "windows/pictures/Pictures.h"

#include <QIconEngine>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

#include <string>

namespace
{
QString PathOf(const std::string& name)
{
    return QStringLiteral(":/pictures/%1.svg").arg(QString::fromStdString(name));
}

/// Pictures are drawn on a grid of 24 pixels, some on one of 16 as well. The one that the pixels
/// of \p side fall on is taken; between the grids the finer one.
std::string DrawingFor(std::string_view name, int side)
{
    const std::string small = std::string(name) + "-small";
    const bool isOnSmallGrid = side < 20 || (side % 16 == 0 && side % 24 != 0);
    const bool hasSmall = std::ranges::find(allPictures, small) != std::end(allPictures);
    return isOnSmallGrid && hasSmall ? small : std::string(name);
}

void Pale(QPainter& painter, const QRect& area)
{
    painter.setCompositionMode(QPainter::CompositionMode_SourceAtop);
    painter.fillRect(area, QColor(205, 209, 213, 190));
}

/// \p pixels are those of the device.
QPixmap Draw(std::string_view name, const QSize& pixels, bool isPale)
{
    const std::string drawing = DrawingFor(name, std::min(pixels.width(), pixels.height()));
    const QString key = QStringLiteral("tovi-%1-%2x%3-%4")
                            .arg(QString::fromStdString(drawing))
                            .arg(pixels.width())
                            .arg(pixels.height())
                            .arg(isPale);
    QPixmap pixmap;
    if (pixels.isEmpty() || QPixmapCache::find(key, &pixmap)) return pixmap;
    pixmap = QPixmap(pixels);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    QSvgRenderer renderer(PathOf(drawing));
    renderer.setAspectRatioMode(Qt::KeepAspectRatio);
    renderer.render(&painter);
    if (isPale) Pale(painter, pixmap.rect());
    painter.end();
    QPixmapCache::insert(key, pixmap);
    return pixmap;
}

class PictureEngine : public QIconEngine
{
public:
    explicit PictureEngine(PictureName picture) : name(picture) {}

    QPixmap pixmap(const QSize& pixels, QIcon::Mode mode, QIcon::State) override
    {
        return Draw(name, pixels, mode == QIcon::Disabled);
    }

    void paint(QPainter* painter, const QRect& area, QIcon::Mode mode, QIcon::State state) override
    {
        const qreal scale = painter->device()->devicePixelRatio();
        QPixmap drawn = pixmap((QSizeF(area.size()) * scale).toSize(), mode, state);
        drawn.setDevicePixelRatio(scale);
        painter->drawPixmap(area, drawn);
    }

    QIconEngine* clone() const override { return new PictureEngine(*this); }

private:
    PictureName name;
};
} // namespace

QIcon PictureIcon(PictureName name)
{
    return QIcon(new PictureEngine(name));
}

std::vector<QIcon> PictureIcons(int number)
{
    std::vector<QIcon> icons;
    for (const PictureName name : PicturesOf(number)) icons.push_back(PictureIcon(name));
    return icons;
}

QPixmap PicturePixmap(PictureName name, const QSize& size, qreal scale)
{
    QPixmap pixmap = Draw(name, (QSizeF(size) * scale).toSize(), false);
    pixmap.setDevicePixelRatio(scale);
    return pixmap;
}

QSize PictureSize(PictureName name)
{
    return QSvgRenderer(PathOf(std::string(std::string_view(name)))).defaultSize();
}
