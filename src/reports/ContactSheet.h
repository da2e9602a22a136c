#pragma once

#include "platform/pictures/LumStripWriter.h"
#include "platform/text/Text.h"

#include <functional>
#include <optional>

class ToviData;

/// Where things stand on a contact sheet, in pixels.
class TOVI_EXPORT ContactSheetLayout
{
public:
    /// \p photoCount at least 0; \p columnCount at least 1.
    ContactSheetLayout(int photoCount, int columnCount);

    int Width() const;
    int Height() const;
    int Count() const { return count; }
    int Columns() const { return columns; }
    /// The height of the part above the first row, and that of each row with its titles.
    static int TopHeight();
    static int RowHeight();
    /// False when the sheet is too large to be drawn.
    bool Fits() const;
    /// The place of the thumbnail at \p position, and that of the title under it.
    LumRect Thumbnail(int position) const;
    LumRect Title(int position) const;

private:
    int count;
    int columns;
};

/// Writes a sheet with the photographs of the current array of \p document to \p writer, whose
/// picture has the size of \p layout: thumbnails with their titles, and 表示できません on pale
/// green for a photograph that can't be decoded. They are decoded on all cores; what is in memory
/// doesn't grow with their number. \p report hears the position of each photograph, in order.
/// Returns the number of those that can't be decoded, nothing when the writer gave up.
TOVI_EXPORT std::optional<int> WriteContactSheet(ToviData& document,
                                                 const ContactSheetLayout& layout,
                                                 LumStripWriter& writer,
                                                 const std::function<void(int)>& report);
