#pragma once

#include "platform/pictures/PictureFault.h"
#include "platform/text/Text.h"

#include <QImage>
#include <QSize>

/// \p image, as large as it fits into \p within but never enlarged; an empty size sets no bounds.
QImage Reduced(const QImage& image, const QSize& within);

/// The bytes of a picture, of which more than one decoding is wanted. Any one thread at a time may
/// use an object. A picture stands as its Exif orientation wants to be looked at.
class ImageSource
{
public:
    /// Up to that many pixels a picture is decoded whole to be shown.
    static constexpr qint64 mostPixelsShown = 60'000'000;
    /// Twice what the largest cameras make. Beyond it stands only what means harm.
    static constexpr qint64 mostPixels = 200'000'000;

    /// Reads the file \p path whole.
    static ImageSource FromFile(const CString& path);
    /// What is no picture of a format that is let in, is cut off or too large decodes to null
    /// images.
    explicit ImageSource(std::string content);

    /// Why there is no picture, or not the whole.
    PictureFault Fault() const { return fault; }
    /// The size of the whole picture; empty when there is none.
    QSize Size() const { return size; }
    /// The picture, as large as it fits into \p within but never enlarged; an empty size sets no
    /// bounds. A null image when that fails or would decode more than \p pixelLimit.
    QImage Read(const QSize& within, qint64 pixelLimit = mostPixelsShown) const;
    /// What there is of a picture that was cut off, in its place, and a pattern where the rest is
    /// missing. A null image when there is nothing, or as above.
    QImage ReadCut(const QSize& within) const;
    /// What of the picture lies in \p part, which isn't empty, reduced so that this fits into \p
    /// within. \p part is widened to what was decoded. A null image as above.
    QImage ReadPart(QRect& part, const QSize& within) const;

private:
    QImage DecodePart(QRect& part, const QSize& within) const;
    PictureFault Judge();

    std::string bytes;
    QSize size;
    PictureFault fault = PictureFault::None;
    bool isJpeg = false;
};
