#include "platform/controls/IconGrid.h"

#include <algorithm>

int IconGrid::Target(Move move, int item) const
{
    const int last = count - 1;
    if (count == 0 || item < 0) return std::min(last, 0);
    switch (move) {
    case Move::Left:
        return std::max(item - 1, 0);
    case Move::Right:
        return std::min(item + 1, last);
    case Move::Up:
        return Below(item, -1);
    case Move::Down:
        return Below(item, 1);
    case Move::PageUp:
        return Below(item, -lines);
    case Move::PageDown:
        return Below(item, lines);
    case Move::Home:
        return 0;
    case Move::End:
        return last;
    }
    return item;
}

int IconGrid::Below(int item, int distance) const
{
    const int lastLine = (count - 1) / columns;
    const int line = std::clamp(item / columns + distance, 0, lastLine);
    return std::min(line * columns + item % columns, count - 1);
}
