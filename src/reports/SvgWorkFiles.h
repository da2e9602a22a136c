#pragma once

#include "platform/text/Text.h"

/// Work files of this run that stand for SVG files where those can't be shown themselves. They are
/// used again once they are there, as long as the SVG file stays as it is.

/// Puts the path of the JPEG thumbnail of the SVG file \p svgPath into \p thumbPath, made if it is
/// not there. False when there is none.
TOVI_EXPORT bool MakeSvgThumb(const char* svgPath, CString& thumbPath);

/// Puts the path of the page that shows the SVG file \p svgPath in a browser into \p pagePath, made
/// if it is not there. False when there is none.
TOVI_EXPORT bool MakeSvgPage(const char* svgPath, CString& pagePath);
