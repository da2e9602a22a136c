#pragma once

#include "platform/text/Text.h"

#include <array>
#include <vector>

class ToviData;
class ToviLabelManager;
class ToviPhoto;

/// What stands in a photograph's row of the check report. The names of the labels and the item that
/// is the photograph's name are those at the time of the construction.
class CheckStatusCells
{
public:
    CheckStatusCells(ToviData& document, const ToviLabelManager& labels);

    /// シリアル番号, 写真名, 撮影箇所, 検査結果 and 所見 of \p photo.
    std::vector<CString> Of(const ToviPhoto& photo) const;

    static constexpr int columns = 5;

private:
    CString FindingsOf(const ToviPhoto& photo) const;

    int serialItem;
    /// -1 when no item is the name.
    int nameItem;
    int placeItem;
    std::array<CString, 3> ngNames;
};

/// \p text as a cell can hold it: lines end in LF, other control characters are blanks, and what
/// exceeds the 32,767 UTF-16 units of a cell is replaced by "…".
CString CellText(std::string_view text);
