#include "platform/pictures/LumImage.h"

#include "platform/exif/ExifCopy.h"
#include "platform/exif/ExifFile.h"
#include "platform/files/AtomicFile.h"
#include "platform/files/MibFile.h"
#include "platform/pictures/ImageFile.h"
#include "platform/pictures/ImageSource.h"
#include "platform/pictures/LumPicture.h"
#include "platform/pictures/PixelTones.h"
#include "platform/pictures/QtColor.h"
#include "platform/pictures/SvgPhoto.h"

#include <QBuffer>
#include <QPainter>
#include <QTransform>

#include <algorithm>
#include <cstdio>

namespace
{
struct WriteFormat
{
    LumImageType type;
    const char* name;
};

constexpr WriteFormat writeFormats[] = {
    {LumBitmap, "bmp"}, {LumJpeg, "jpeg"}, {LumTiff, "tiff"}, {LumPng, "png"}};

} // namespace

int JpegPercent(unsigned quality)
{
    constexpr int percents[] = {60, 85, 95};
    return percents[std::min<std::size_t>(quality, std::size(percents) - 1)];
}

QImage LumPixels::Of(const LumImage& image)
{
    return image.picture ? image.picture->image : QImage();
}

LumImage LumPixels::From(QImage image)
{
    LumImage made;
    if (!image.isNull()) {
        made.picture = std::make_unique<LumImage::Picture>(LumImage::Picture{std::move(image)});
    }
    return made;
}

LumImage::LumImage() = default;
LumImage::~LumImage() = default;
LumImage::LumImage(LumImage&&) noexcept = default;
LumImage& LumImage::operator=(LumImage&&) noexcept = default;

LumImage::LumImage(const LumImage& other)
    : picture(other.picture ? std::make_unique<Picture>(*other.picture) : nullptr)
{}

LumImage& LumImage::operator=(const LumImage& other)
{
    if (this != &other) *this = LumImage(other);
    return *this;
}

bool LumImage::Load(const char* path)
{
    return LoadReduced(path, 0);
}

bool LumImage::LoadThumb(const char* path)
{
    return LoadReduced(path, thumbSide);
}

bool LumImage::LoadReduced(const char* path, int longestSide)
{
    *this = LumPixels::From(ReadImage(path, longestSide));
    return IsValid();
}

bool LumImage::LoadWhole(const char* path)
{
    if (EqualNoCase(MibGetExt(path), ".svg")) return Load(path);
    const ImageSource source = ImageSource::FromFile(path);
    *this = LumPixels::From(source.Read(QSize(), ImageSource::mostPixels));
    return IsValid();
}

bool LumImage::IsValid() const
{
    return picture != nullptr;
}

void LumImage::FitInto(int width, int height)
{
    if (!picture || (GetWidth() <= width && GetHeight() <= height)) return;
    const QSize size = picture->image.size().scaled(width, height, Qt::KeepAspectRatio);
    picture->image = picture->image.scaled(size.expandedTo({1, 1}), Qt::IgnoreAspectRatio,
                                           Qt::SmoothTransformation);
}

void LumImage::Clear()
{
    picture.reset();
}

int LumImage::GetWidth() const
{
    return picture ? picture->image.width() : 0;
}

int LumImage::GetHeight() const
{
    return picture ? picture->image.height() : 0;
}

void LumImage::Rotate(int angle, unsigned long backColor, bool keepSize, bool smooth)
{
    if (!picture) return;
    const QImage& source = picture->image;
    const QTransform turn = QTransform().rotate(angle);
    if (angle % 90 == 0 && !keepSize) {
        picture->image = source.transformed(turn);
        return;
    }
    const QSize size =
        keepSize ? source.size() : turn.mapRect(QRectF(source.rect())).toRect().size();
    QImage turned(size, QImage::Format_RGB32);
    turned.fill(QtColor(backColor));
    QPainter painter(&turned);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, smooth);
    painter.translate(QRectF(turned.rect()).center());
    painter.rotate(angle);
    painter.drawImage(-QRectF(source.rect()).center(), source);
    painter.end();
    picture->image = turned;
}

void LumImage::SetContrast(int amount)
{
    if (picture) ApplyTones(picture->image, ContrastCurve(amount));
}

bool LumImage::ConvGrayScaleFromMono()
{
    if (!picture || picture->image.depth() != 1) return false;
    picture->image = picture->image.convertToFormat(QImage::Format_Grayscale8);
    return true;
}

std::optional<std::string> LumImage::Encode(LumImageType type, unsigned quality) const
{
    const auto* format =
        std::find_if(std::begin(writeFormats), std::end(writeFormats),
                     [type](const WriteFormat& known) { return known.type == type; });
    if (!picture || format == std::end(writeFormats)) return std::nullopt;
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (!picture->image.save(&buffer, format->name, type == LumJpeg ? JpegPercent(quality) : -1)) {
        return std::nullopt;
    }
    return bytes.toStdString();
}

std::optional<std::string> LumImage::EncodeCopy(const char* original) const
{
    constexpr unsigned best = 2;
    std::optional<std::string> jpeg = Encode(LumJpeg, best);
    if (!jpeg) return std::nullopt;
    return WithExif(*jpeg, ExifOfCopy(ReadExifFileBlock(original).bytes, GetWidth(), GetHeight()));
}

bool LumImage::Save(const char* path, LumImageType type, unsigned quality) const
{
    const auto bytes = Encode(type, quality);
    return bytes && WriteFileAtomically(path, *bytes);
}

bool LumImage::GetCommentImageSize(const char* path, int& width, int& height)
{
    const std::optional<QSize> size = ReadImageSize(path);
    if (!size) return false;
    width = size->width();
    height = size->height();
    return true;
}

bool LumImage::GetComment(const char* path, LumCMNT code, CString& out)
{
    std::optional<CString> text = ExifFile(path == nullptr ? "" : path).Text(code);
    if (!text) return false;
    out = std::move(*text);
    return true;
}

LumComments LumImage::GetComments(const char* path)
{
    const ExifFile file(path == nullptr ? "" : path);
    LumComments comments;
    for (int code = 0; code < LumCmntCount; ++code) {
        comments[static_cast<std::size_t>(code)] = file.Text(static_cast<LumCMNT>(code));
    }
    return comments;
}

bool LumImage::GetMainImageFromSvg(const char* svgPath, const char* outPath)
{
    const std::optional<std::string> jpeg = ReadMainImageOfSvg(svgPath);
    if (jpeg && WriteWorkFile(outPath, *jpeg)) return true;
    // What an earlier photograph of this name has left would pass for this one's picture.
    std::remove(outPath);
    return false;
}
