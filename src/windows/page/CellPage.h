#pragma once

#include "windows/cell/ToviSpiCtrl.h"

#include <functional>
#include <memory>
#include <vector>

/// The cells of a page. They stay from page to page; each shows one photograph or none.
class TOVI_EXPORT CellPage
{
public:
    /// Makes \p count empty cells with \p makeCell, which is given the number of each.
    void Create(int count, const std::function<std::unique_ptr<ToviSpiCtrl>(int)>& makeCell);
    /// Releases the pictures and destroys the cells.
    void Destroy();

    int Count() const { return static_cast<int>(cells.size()); }
    /// The cell \p index; one that doesn't exist throws InvalidArgument.
    ToviSpiCtrl& At(int index) const;
    /// The number of cells that hold a photograph.
    int CountFilled() const;
    /// The cell that shows the position \p position of the current array; -1 for none.
    int CellOf(int position) const;

    /// Shows the photographs from the position \p first on. The pictures of those that were on
    /// show are released.
    void Show(int first);
    /// Gives the cells their places on a page of \p size.
    void Place(QSize size, int columns, int rows);

    /// Calls \p action with each cell.
    template <class Action>
    void ForEach(const Action& action) const
    {
        for (const auto& cell : cells) action(*cell);
    }

private:
    std::vector<std::unique_ptr<ToviSpiCtrl>> cells;
};
