#include "platform/pictures/TiffSheets.h"

#include "platform/files/MibFile.h"
#include "platform/files/RegularFile.h"
#include "platform/pictures/ImageDecoding.h"
#include "platform/pictures/LumPicture.h"

#include <QBuffer>
#include <QImageReader>

#include <algorithm>
#include <array>

namespace
{
constexpr qint64 mostPixels = 60'000'000;
constexpr std::size_t largestFile = std::size_t{512} << 20;
/// A drawing has fewer; a file that says otherwise means harm.
constexpr int mostSheets = 1000;

/// A TIFF file; any other has no reader.
class TiffFile
{
public:
    explicit TiffFile(const CString& path)
    {
        const RegularFile file(path);
        std::array<char, 2> order = {};
        isThere = file.IsOpen();
        if (!isThere || file.Read(order.data(), order.size()) != 2 || order[0] != order[1]) return;
        bytes = MibReadFile(path, largestFile).value_or(std::string());
        shared = QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size()));
        Prepare(reader, buffer);
    }

    bool IsTiff() const { return !bytes.empty() && reader.format() == "tiff"; }
    bool IsThere() const { return isThere; }
    QImageReader& Reader() { return reader; }

private:
    bool isThere = false;
    std::string bytes;
    QByteArray shared;
    QBuffer buffer{&shared};
    QImageReader reader;
};
} // namespace

int CountTiffSheets(const CString& path)
{
    TiffFile file(path);
    if (!file.IsTiff()) return file.IsThere() ? 1 : 0;
    return std::clamp(file.Reader().imageCount(), 1, mostSheets);
}

LumImage ReadTiffSheet(const CString& path, int sheet)
{
    TiffFile file(path);
    if (!file.IsTiff() || sheet < 0 || sheet >= mostSheets) return {};
    QImageReader& reader = file.Reader();
    if (!reader.jumpToImage(sheet)) return {};
    const QSize size = reader.size();
    if (size.isEmpty() || qint64{size.width()} * size.height() > mostPixels) return {};
    return LumPixels::From(reader.read());
}
