#pragma once

#include "platform/text/Text.h"

class QImageReader;
class QIODevice;

/// What is asked of a foreign picture before it is decoded.

/// Walks the segments of a JPEG file. True when it reaches the marker that ends the picture: the
/// decoder itself fills what is missing of a file cut off with grey and calls that a success.
bool IsCompleteJpeg(std::string_view bytes);

/// Lets the content of \p source decide about its format, and not its name.
void Prepare(QImageReader& reader, QIODevice& source);

/// To be asked before anything else: for its size alone a picture in some other format, an SVG
/// under a photograph's name say, would be read whole.
bool IsLetIn(const QImageReader& reader);
