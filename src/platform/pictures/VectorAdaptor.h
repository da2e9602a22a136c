#pragma once

#include "platform/text/Export.h"

/// What SVG files become so that they can be shown where only pictures and pages can.

/// Draws the SVG file \p svgPath into the JPEG file \p jpegPath, as large as it fits into \p width
/// by \p height pixels and never enlarged. False, with no file written, when it can't be drawn.
TOVI_EXPORT bool CreateJepgFromSVG_Size(const char* svgPath, const char* jpegPath,
                                        unsigned short width, unsigned short height);

/// Writes a page to \p htmlPath that shows the SVG file \p svgPath as a browser draws it, fitted to
/// the window: the drawing is in the page, without its scripts and links. False, with no file
/// written, when it is no SVG file.
TOVI_EXPORT bool SVGtoHTML2(const char* svgPath, const char* htmlPath, const char* programFolder);
