#pragma once

/// The window ids of what a cell is made of. The button of a label has idFirstLabel plus its slot.
enum CellChildId : int
{
    idImage = 1001,
    idFailPlate = 1095,
    idInfoList = 1102,
    idNamePlate = 1103,
    idValueTable = 1105,
    idValueEdit = 1106,
    idSplitter = 1107,
    idTopPane = 1108,
    idBottomPane = 1109,
    idFirstLabel = 1200,
    /// The status marks, which never have the focus; the one for drawings shares the number of the
    /// last label.
    idPhotoMark = 1205,
    idCheckMark = 1206
};

/// The id of the child of a cell that takes the focus for \p windowId: of two that stand in one
/// place, the one that is shown there. 0 stands for the cell itself. \p imageOk: the photograph is
/// shown and not the plate in its place; \p hasValueRows: so is the table of the control values and
/// not their text.
int ChildToFocus(int windowId, bool imageOk, bool hasValueRows);
