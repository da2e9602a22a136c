#include "windows/pictures/Pictures.h"
#include "windows/pictures/PhotoGround.h"

#include "platform/host/Headless.h"
#include "platform/pictures/QtColor.h"
#include "platform/text/CArray.h"
#include "review/ToviLabelManager.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QDir>
#include <QPainter>
#include <QWidget>

#include <array>
#include <string>
#include <utility>

namespace
{
constexpr qreal scales[] = {1.0, 1.25, 2.0};

QImage Shown(const QIcon& icon, int side, qreal scale, QIcon::Mode mode = QIcon::Normal)
{
    EnsureGui();
    return icon.pixmap(QSize(side, side), scale, mode)
        .toImage()
        .convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

/// How many of a hundred pixels satisfy \p matches.
template <typename Matches>
double Share(const QImage& image, const Matches& matches)
{
    int found = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) found += matches(image.pixelColor(x, y));
    }
    return 100.0 * found / (image.width() * image.height());
}

template <std::size_t... index>
constexpr auto Names(std::index_sequence<index...>)
{
    return std::array{PictureName(allPictures[index].data())...};
}

std::vector<std::string> FilesOfPictures()
{
    std::vector<std::string> names;
    for (const QString& file : QDir(QStringLiteral(":/pictures")).entryList()) {
        names.push_back(file.chopped(4).toStdString());
    }
    return names;
}

TEST(Pictures, AreTheFilesThatAreNamedAndNotBlankAtAnyScale)
{
    EnsureGui();
    EXPECT_THAT(FilesOfPictures(), testing::UnorderedElementsAreArray(allPictures));
    for (const PictureName name : Names(std::make_index_sequence<std::size(allPictures)>())) {
        for (const qreal scale : scales) {
            const QSize size = PictureSize(name);
            const QImage image = PicturePixmap(name, size, scale).toImage();
            EXPECT_EQ(image.size(), (QSizeF(size) * scale).toSize());
            EXPECT_GT(Share(image, [](const QColor& pixel) { return pixel.alpha() > 127; }), 12)
                << std::string_view(name) << " at " << scale;
        }
    }
}

TEST(Pictures, OfOneNumberDifferAndShareTheirSize)
{
    EnsureGui();
    for (const int number : PictureNumbers()) {
        std::vector<QImage> images;
        for (const PictureName name : PicturesOf(number)) {
            const QImage image = PicturePixmap(name, PictureSize(name), 1).toImage();
            EXPECT_THAT(images, testing::Not(testing::Contains(image)))
                << std::string_view(name) << " occurs twice in " << number;
            images.push_back(image);
            EXPECT_EQ(image.size(), images.front().size()) << std::string_view(name);
        }
    }
    EXPECT_THROW(PicturesOf(804), InvalidArgument);
}

// Colourless as they are, the six pictures of labels that are off differ (by their number, above);
// having their shapes, those that are on differ in more than colour.
TEST(Pictures, OfLabelsShowTheLabelsColorOnlyWhereItIsOn)
{
    const ToviLabelManager labels;
    const std::vector<QIcon> strip = PictureIcons(805);
    const std::vector<QIcon> tree = PictureIcons(815);
    const std::vector<QIcon> overlays = PictureIcons(816);
    const auto isColoured = [](const QColor& pixel) {
        return pixel.alpha() == 255 && pixel.saturation() > 60;
    };
    for (unsigned int slot = 0; slot < labelCount; ++slot) {
        SCOPED_TRACE(slot);
        const QColor color = QtColor(labels.GetLabelAttribute(slot).GetColor());
        const auto share = [&](const QIcon& icon, int side, qreal scale) {
            return Share(Shown(icon, side, scale), [&](const QColor& p) { return p == color; });
        };
        for (const qreal scale : scales) {
            EXPECT_GT(share(strip[slot], 24, scale), 10);
            EXPECT_GT(share(overlays[slot], 16, scale), 10);
            EXPECT_GT(share(tree[slot + 1], 24, scale), 4);
            EXPECT_GT(share(tree[slot + 8], 24, scale), 10);
        }
        const QImage on = Shown(strip[slot], 24, 1);
        const QImage off = Shown(strip[slot + labelCount], 24, 1);
        EXPECT_EQ(on.convertToFormat(QImage::Format_Alpha8),
                  off.convertToFormat(QImage::Format_Alpha8));
        EXPECT_EQ(Share(off, isColoured), 0);
    }
}

TEST(Pictures, AreSharpAtEveryScaleAndPaleWhereDisabled)
{
    const QIcon icon = PictureIcon("save");
    const QImage once = Shown(icon, 24, 1);
    EXPECT_NE(Shown(icon, 24, 2),
              once.scaled(48, 48, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    EXPECT_NE(Shown(icon, 24, 1, QIcon::Disabled), once);
    EXPECT_EQ(Shown(PictureIcon("mode-3"), 16, 1), Shown(PictureIcon("mode-3-small"), 16, 1));
    EXPECT_NE(Shown(PictureIcon("mode-3"), 24, 1), Shown(PictureIcon("mode-3-small"), 24, 1));
}
TEST(PhotoGround, FollowsTheDesktopUnlessTheUserChooses)
{
    PhotoGround& ground = PhotoGround::Get();
    QWidget widget;
    ground.LieUnder(widget, QPalette::Window);
    const auto lightness = [&widget] {
        return widget.palette().color(QPalette::Window).lightness();
    };
    EXPECT_GT(lightness(), 180);
    EXPECT_LT(lightness(), 240) << "never glaring";
    ground.Choose(GroundTone::Middle);
    EXPECT_EQ(lightness(), 128);
    ground.SetSlideMode(true);
    EXPECT_LT(lightness(), 60);
    ground.SetSlideMode(false);
    EXPECT_EQ(lightness(), 128);
    ground.Choose({});
    const QPalette before = QApplication::palette();
    QApplication::setPalette(QPalette(Qt::black));
    EXPECT_EQ(ground.Tone(), GroundTone::Dark);
    QApplication::setPalette(before);
}
} // namespace
