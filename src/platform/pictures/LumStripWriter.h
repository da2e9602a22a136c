#pragma once

#include "platform/pictures/LumCanvas.h"
#include "platform/text/Text.h"

#include <functional>
#include <memory>

/// Writes a picture file strip by strip from the top down, so that the picture need not be in
/// memory whole. The bytes are those that LumImage::Encode gives for the whole picture.
class TOVI_EXPORT LumStripWriter
{
public:
    /// Takes the next bytes of the file. False when there is no use in further ones.
    using Sink = std::function<bool(std::string_view bytes)>;

    /// A file of \p type, LumPng or LumJpeg, with a picture of \p width by \p height pixels. \p
    /// quality as in LumImage::Encode. Another type throws InvalidArgument.
    LumStripWriter(LumImageType type, unsigned quality, int width, int height, Sink sink);
    ~LumStripWriter();
    LumStripWriter(const LumStripWriter&) = delete;
    LumStripWriter& operator=(const LumStripWriter&) = delete;

    /// Adds the rows of \p strip, which is as wide as the picture. False when the sink wants no
    /// more.
    bool Append(const LumCanvas& strip);
    /// Ends the file, all rows of which were appended. False as Append.
    bool Finish();

    /// What knows one kind of file.
    class Encoder;

private:
    std::unique_ptr<Encoder> encoder;
    bool begun = false;
};
