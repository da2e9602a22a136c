#include "platform/pictures/VectorAdaptor.h"

#include "platform/files/AtomicFile.h"
#include "platform/pictures/ImageFile.h"
#include "platform/pictures/SvgPhoto.h"

#include <QBuffer>
#include <QByteArray>
#include <QImage>

namespace
{
constexpr int jpegQuality = 90;

// As an image the drawing runs no script and fetches nothing; the policy says so once more.
constexpr std::string_view pageHead =
    "<!DOCTYPE html>\n"
    "<html lang=\"ja\"><head><meta charset=\"utf-8\">\n"
    "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; img-src data:; "
    "style-src 'unsafe-inline'\">\n"
    "<style>html,body{margin:0;height:100%;background:#fff}"
    "img{display:block;width:100%;height:100%;object-fit:contain}</style></head>\n"
    "<body><img alt=\"\" src=\"data:image/svg+xml;base64,";
constexpr std::string_view pageEnd = "\"></body></html>\n";
} // namespace

bool CreateJepgFromSVG_Size(const char* svgPath, const char* jpegPath, unsigned short width,
                            unsigned short height)
{
    const QImage image = ReadSvgImage(svgPath, {width, height});
    if (image.isNull()) return false;
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    return image.save(&buffer, "jpeg", jpegQuality) && WriteWorkFile(jpegPath, bytes.toStdString());
}

bool SVGtoHTML2(const char* svgPath, const char* htmlPath, const char* /*programFolder*/)
{
    const std::optional<std::string> svg = ReadSvgFile(svgPath);
    if (!svg) return false;
    const QByteArray encoded =
        QByteArray::fromRawData(svg->data(), static_cast<qsizetype>(svg->size())).toBase64();
    std::string page(pageHead);
    page.append(encoded.constData(), static_cast<std::size_t>(encoded.size())).append(pageEnd);
    return WriteWorkFile(htmlPath, page);
}
