#pragma once

#include "items/ToviPhotoCtrlVisualSetting.h"

/// The keys that move through photographs.
enum class MoveKey
{
    PageUp,
    PageDown,
    Left,
    Right,
    Up,
    Down
};

/// Where the selection stands before a move over the cells of a page.
struct CellPosition
{
    ToviPhotoCtrlVisualSetting::DivideType mode = ToviPhotoCtrlVisualSetting::DivideOne;
    /// The selected cell, or 0; cells run down the columns.
    int cell = 0;
    /// How many cells hold a photograph.
    int filledCells = 0;
    int page = 1;
    int pages = 0;
    /// The selected position of the current array, or -1.
    int position = -1;
    int photoCount = 0;
};

/// What a key does.
struct CellMove
{
    enum Kind
    {
        Nothing,
        PreviousPage,
        NextPage,
        PreviousPhoto,
        NextPhoto,
        /// Select the cell \p cell.
        SelectCell,
        /// Go to the previous page and select the cell \p cell there.
        PreviousPageCell
    };

    Kind kind = Nothing;
    int cell = 0;

    bool operator==(const CellMove&) const = default;
};

/// What \p key does on a page: the arrows go from photograph to photograph in one column, and by
/// rows in two, where they lead over the end of a page to the next one.
TOVI_EXPORT CellMove MoveOnPage(MoveKey key, const CellPosition& from);

/// What \p key does in the thumbnail list of \p count items after the list has handled it itself,
/// which led its mark from \p markBefore to \p mark: at the end of a line it goes on to the
/// neighbour.
TOVI_EXPORT CellMove::Kind MoveOnList(MoveKey key, int markBefore, int mark, int count);
