#include "windows/page/PageLayout.h"

#include <algorithm>

namespace
{
struct Stretch
{
    int start;
    int length;
};

std::vector<Stretch> Divide(int whole, int parts)
{
    constexpr int gap = 2;
    std::vector<Stretch> stretches;
    int start = 0;
    int length = parts > 0 ? whole / parts : 0;
    for (int left = parts; left > 0; --left) {
        stretches.push_back({start, length});
        start += length + gap;
        if (left > 1) length = std::max(0, whole - start) / (left - 1);
    }
    return stretches;
}
} // namespace

std::vector<CellPlace> LayOutPage(int width, int height, int columns, int rows)
{
    std::vector<CellPlace> places;
    for (const Stretch& column : Divide(width, columns)) {
        for (const Stretch& row : Divide(height, rows))
            places.push_back({column.start, row.start, column.length, row.length});
    }
    return places;
}
