#pragma once

#include "platform/pictures/LumCanvas.h"
#include "platform/text/Text.h"

#include <functional>

class ToviData;

/// Where things stand on a contact sheet, in pixels.
class ContactSheetLayout
{
public:
    /// \p photoCount at least 0; \p columnCount at least 1.
    ContactSheetLayout(int photoCount, int columnCount);

    int Width() const;
    int Height() const;
    /// False when the sheet is too large to be drawn.
    bool Fits() const;
    /// The place of the thumbnail at \p position, and that of the title under it.
    LumRect Thumbnail(int position) const;
    LumRect Title(int position) const;

private:
    int count;
    int columns;
};

struct ContactSheet
{
    /// Invalid when the sheet doesn't fit.
    LumImage image;
    /// The photographs that can't be decoded.
    int notShown = 0;
};

/// A sheet with the photographs of the current array of \p document, \p columns in a row:
/// thumbnails with their titles, and 表示できません on pale green for a photograph that can't be
/// decoded. \p report hears the position of each photograph.
TOVI_EXPORT ContactSheet MakeContactSheet(ToviData& document, int columns,
                                          const std::function<void(int)>& report);
