#pragma once

/// The six fixed labels (付箋), known everywhere by these numbers and never by a mask.
enum LabelSlot : unsigned int
{
    LabelOk = 0,
    LabelNg1 = 1,
    LabelNg2 = 2,
    LabelNg3 = 3,
    LabelComment = 4,
    LabelFree = 5
};

inline constexpr unsigned int labelCount = 6;
