#pragma once

#include "platform/text/Text.h"

class QBuffer;
class QImageReader;

/// What is asked of a foreign picture before it is decoded.

/// Walks the segments of a JPEG file. True when it reaches the marker that ends the picture: the
/// decoder itself fills what is missing of a file cut off with grey and calls that a success.
bool IsCompleteJpeg(std::string_view bytes);

/// Lets the content of \p source decide about its format. It is in memory: what chooses among Qt's
/// readers looks at it under a lock, for which every window that draws an icon would wait, too,
/// while a share doesn't answer.
void Prepare(QImageReader& reader, QBuffer& source);

/// To be asked before anything else: for its size alone a picture in some other format, an SVG
/// under a photograph's name say, would be read whole.
bool IsLetIn(const QImageReader& reader);
