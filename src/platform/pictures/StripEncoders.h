#pragma once

#include "platform/pictures/LumStripWriter.h"

class QImage;

/// What the libraries of the formats throw through their own code, which is compiled to let that
/// pass: the sink wants no more, or there is no memory.
struct StripEncodingEnds
{};

class LumStripWriter::Encoder
{
public:
    Encoder(int imageWidth, int imageHeight, Sink into)
        : width(imageWidth), height(imageHeight), sink(std::move(into))
    {}
    virtual ~Encoder() = default;

    /// Comes before the first rows, which \p image holds, for what is told of its resolution.
    virtual void Begin(const QImage& image) = 0;
    /// One row of three bytes a pixel: red, green, blue.
    virtual void AddRow(const unsigned char* row) = 0;
    virtual void End() = 0;

protected:
    void Give(const void* bytes, std::size_t size)
    {
        if (!sink({static_cast<const char*>(bytes), size})) throw StripEncodingEnds();
    }

    const int width;
    const int height;

private:
    Sink sink;
};

std::unique_ptr<LumStripWriter::Encoder> MakePngEncoder(int width, int height,
                                                        LumStripWriter::Sink sink);
/// \p percent from 0 to 100.
std::unique_ptr<LumStripWriter::Encoder> MakeJpegEncoder(int width, int height, int percent,
                                                         LumStripWriter::Sink sink);
