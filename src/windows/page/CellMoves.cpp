#include "windows/page/CellMoves.h"

namespace
{
using Setting = ToviPhotoCtrlVisualSetting;

/// The rows of a mode with two columns; 0 in another one.
int RowsOfTwoColumns(Setting::DivideType mode)
{
    switch (mode) {
    case Setting::DivideFour:
        return 2;
    case Setting::DivideSix:
        return 3;
    default:
        return 0;
    }
}

CellMove Back(const CellPosition& from)
{
    return {from.position > 0 ? CellMove::PreviousPhoto : CellMove::Nothing};
}

CellMove Forth(const CellPosition& from)
{
    return {from.position < from.photoCount - 1 ? CellMove::NextPhoto : CellMove::Nothing};
}

CellMove LeftInTwoColumns(const CellPosition& from, int rows)
{
    const int lastCell = 2 * rows - 1;
    if (from.cell >= rows) return {CellMove::SelectCell, from.cell - rows};
    if (from.cell == 0) {
        if (from.page <= 1) return {};
        return {CellMove::PreviousPageCell, lastCell};
    }
    const int rowAbove = from.cell + rows - 1;
    return {CellMove::SelectCell, rowAbove < from.filledCells ? rowAbove : from.cell - 1};
}

CellMove RightInTwoColumns(const CellPosition& from, int rows)
{
    const int lastCell = 2 * rows - 1;
    if (from.cell == lastCell)
        return {from.page < from.pages ? CellMove::NextPage : CellMove::Nothing};
    if (from.cell >= rows) return {CellMove::SelectCell, from.cell - rows + 1};
    const int sameRow = from.cell + rows;
    if (sameRow < from.filledCells) return {CellMove::SelectCell, sameRow};
    const int below = from.cell + 1;
    if (below == rows || below >= from.filledCells) return {};
    return {CellMove::SelectCell, below};
}
} // namespace

CellMove MoveOnPage(MoveKey key, const CellPosition& from)
{
    const int rows = RowsOfTwoColumns(from.mode);
    const bool isList = from.mode > Setting::DivideSix;
    switch (key) {
    case MoveKey::PageUp:
        return {from.page > 1 ? CellMove::PreviousPage : CellMove::Nothing};
    case MoveKey::PageDown:
        return {from.page < from.pages ? CellMove::NextPage : CellMove::Nothing};
    case MoveKey::Up:
        return Back(from);
    case MoveKey::Down:
        return Forth(from);
    case MoveKey::Left:
        if (isList) return {};
        return rows > 0 ? LeftInTwoColumns(from, rows) : Back(from);
    case MoveKey::Right:
        if (isList) return {};
        return rows > 0 ? RightInTwoColumns(from, rows) : Forth(from);
    }
    return {};
}

CellMove::Kind MoveOnList(MoveKey key, int markBefore, int mark, int count)
{
    if (markBefore != mark) return CellMove::Nothing;
    if (key == MoveKey::Left && mark >= 1) return CellMove::PreviousPhoto;
    if (key == MoveKey::Right && mark < count - 1) return CellMove::NextPhoto;
    return CellMove::Nothing;
}
