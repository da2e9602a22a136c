#pragma once

#include "platform/text/Text.h"

#include <QSize>

class QImage;

/// Draws the SVG file \p path, as large as it fits into \p within but never enlarged; an empty size
/// sets no bounds. Nothing outside the file is read. A null image when it can't be drawn, takes
/// more time or memory than any picture of a delivery, or the program tovi-svg isn't installed.
QImage RenderSvg(const CString& path, const QSize& within);
