#include "platform/pictures/ImageDecoding.h"

#include "platform/host/Headless.h"

#include <QBuffer>
#include <QImageReader>

#include <algorithm>
#include <cstring>

namespace
{
constexpr const char* formats[] = {"jpeg", "tiff", "png", "bmp", "gif"};
} // namespace

bool IsCompleteJpeg(std::string_view bytes)
{
    constexpr unsigned char startOfScan = 0xDA;
    constexpr unsigned char endOfImage = 0xD9;
    const auto byte = [bytes](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
    std::size_t at = 2;
    while (at + 1 < bytes.size()) {
        const auto* marker =
            static_cast<const char*>(std::memchr(bytes.data() + at, 0xFF, bytes.size() - at - 1));
        if (marker == nullptr) return false;
        at = static_cast<std::size_t>(marker - bytes.data()) + 1;
        const unsigned char code = byte(at);
        if (code == endOfImage) return true;
        const bool hasLength = code >= 0xC0 && code < 0xFF && (code < 0xD0 || code >= startOfScan);
        if (!hasLength) continue;
        if (at + 2 >= bytes.size()) return false;
        at += 1 + (static_cast<std::size_t>(byte(at + 1)) << 8 | byte(at + 2));
    }
    return false;
}

void Prepare(QImageReader& reader, QBuffer& source)
{
    EnsureQuiet();
    // Qt's own limit knows bytes, and is below what cameras make; who decodes asks for the pixels.
    static const bool isUnlimited = (QImageReader::setAllocationLimit(0), true);
    Q_UNUSED(isUnlimited);
    reader.setDevice(&source);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
}

bool IsLetIn(const QImageReader& reader)
{
    const QByteArray format = reader.format();
    return std::any_of(std::begin(formats), std::end(formats),
                       [&format](const char* known) { return format == known; });
}
