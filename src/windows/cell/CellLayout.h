#pragma once

#include "items/ToviPhotoCtrlVisualSetting.h"
#include "photos/LabelSlots.h"

/// A place inside a window, in pixels of the layout.
struct CellPlace
{
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    bool operator==(const CellPlace&) const = default;
};

/// Where the parts of a cell stand: the photograph below the room for a comment strip, the
/// information to the right of both, the name plate below all.
struct CellLayout
{
    static constexpr int stripHeight = 30;
    static constexpr int plateHeight = 27;
    /// The width of the photograph beside the information, in sixtieths of the cell's width.
    static constexpr int imagePaneShare = 35;

    CellPlace image;
    /// Of no width where no information is shown.
    CellPlace information;
    CellPlace plate;
};

/// The layout of a cell of this size. \p hasStrip: a comment is shown over the photograph. With an
/// \p arrange that isn't one of the enumeration there is room for the plate alone.
CellLayout LayOutCell(int width, int height, ToviPhotoCtrlVisualSetting::ImageTextArrange arrange,
                      bool hasStrip);

/// Where the parts of a name plate stand.
struct PlateLayout
{
    CellPlace photoMark;
    CellPlace checkMark;
    CellPlace buttons[labelCount];
    /// The room for the title, at the left.
    int titleWidth = 0;
};

/// The layout of a plate of this size, whose status marks are squares of \p markSide.
PlateLayout LayOutPlate(int width, int height, int markSide);
