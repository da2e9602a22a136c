#include "platform/pictures/TiffSheets.h"

#include "platform/files/RegularFile.h"
#include "platform/host/Headless.h"
#include "platform/pictures/LumPicture.h"

#include <QFile>
#include <QImageReader>

#include <algorithm>

namespace
{
constexpr qint64 mostPixels = 60'000'000;
/// A drawing has fewer; a file that says otherwise means harm.
constexpr int mostSheets = 1000;

/// An opened TIFF file; any other has no reader.
class TiffFile
{
public:
    explicit TiffFile(const CString& path) : opened(path)
    {
        EnsureQuiet();
        if (!opened.IsOpen() || !file.open(opened.Descriptor(), QIODevice::ReadOnly)) return;
        reader.setDevice(&file);
        reader.setDecideFormatFromContent(true);
        reader.setAutoTransform(true);
    }

    bool IsTiff() const { return file.isOpen() && reader.format() == "tiff"; }
    bool IsThere() const { return file.isOpen(); }
    QImageReader& Reader() { return reader; }

private:
    RegularFile opened;
    QFile file;
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
