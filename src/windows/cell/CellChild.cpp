#include "windows/cell/CellChild.h"

#include "photos/LabelSlots.h"

int ChildToFocus(int windowId, bool imageOk, bool hasValueRows)
{
    switch (windowId) {
    case idImage:
    case idFailPlate:
        return imageOk ? idImage : idFailPlate;
    case idValueTable:
    case idValueEdit:
        return hasValueRows ? idValueTable : idValueEdit;
    case idInfoList:
    case idNamePlate:
        return windowId;
    default:
        break;
    }
    const bool isLabel =
        windowId >= idFirstLabel && windowId < idFirstLabel + static_cast<int>(labelCount);
    return isLabel ? windowId : 0;
}
