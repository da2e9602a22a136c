#include "platform/pictures/LumStripWriter.h"

#include "platform/pictures/LumPicture.h"
#include "platform/pictures/StripEncoders.h"
#include "platform/text/CArray.h"

LumStripWriter::LumStripWriter(LumImageType type, unsigned quality, int width, int height,
                               Sink sink)
{
    if (type == LumPng) {
        encoder = MakePngEncoder(width, height, std::move(sink));
    } else if (type == LumJpeg) {
        encoder = MakeJpegEncoder(width, height, JpegPercent(quality), std::move(sink));
    } else {
        throw InvalidArgument("no file of this type is written in strips");
    }
}

LumStripWriter::~LumStripWriter() = default;

bool LumStripWriter::Append(const LumCanvas& strip)
{
    const QImage rows = LumPixels::Of(strip.GetImage()).convertToFormat(QImage::Format_RGB888);
    try {
        if (!begun) encoder->Begin(rows);
        begun = true;
        for (int y = 0; y < rows.height(); ++y) encoder->AddRow(rows.constScanLine(y));
    } catch (const StripEncodingEnds&) {
        return false;
    }
    return true;
}

bool LumStripWriter::Finish()
{
    try {
        encoder->End();
    } catch (const StripEncodingEnds&) {
        return false;
    }
    return true;
}
