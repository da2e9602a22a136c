#include "windows/page/CellPage.h"

#include "windows/page/PageLayout.h"

#include <algorithm>

void CellPage::Create(int count, const std::function<std::unique_ptr<ToviSpiCtrl>(int)>& makeCell)
{
    Destroy();
    for (int index = 0; index < count; ++index) cells.push_back(makeCell(index));
}

void CellPage::Destroy()
{
    for (const auto& cell : cells) cell->ClearPhoto();
    cells.clear();
}

ToviSpiCtrl& CellPage::At(int index) const
{
    if (index < 0 || index >= Count()) ThrowOutsideArray(index, Count());
    return *cells[static_cast<std::size_t>(index)];
}

int CellPage::CountFilled() const
{
    return static_cast<int>(
        std::ranges::count_if(cells, [](const auto& cell) { return cell->GetPhotoIndex() >= 0; }));
}

int CellPage::CellOf(int position) const
{
    if (position < 0) return -1;
    const auto shows = [position](const auto& cell) { return cell->GetPhotoIndex() == position; };
    const auto found = std::ranges::find_if(cells, shows);
    return found == cells.end() ? -1 : static_cast<int>(found - cells.begin());
}

void CellPage::Show(int first)
{
    // All before the first is filled: a photograph may come from one cell into another. One that
    // stays in its cell isn't read again.
    for (int index = 0; index < Count(); ++index) {
        if (!At(index).Shows(first + index)) At(index).ClearPhoto();
    }
    for (int index = 0; index < Count(); ++index) {
        At(index).SetPhoto(first + index);
        At(index).LayoutChildren();
    }
}

void CellPage::Place(QSize size, int columns, int rows)
{
    const std::vector<CellPlace> places = LayOutPage(size.width(), size.height(), columns, rows);
    for (std::size_t index = 0; index < std::min(cells.size(), places.size()); ++index) {
        const CellPlace& place = places[index];
        cells[index]->setGeometry(place.x, place.y, place.width, place.height);
        // One that is hidden hears of its size only as it shows.
        cells[index]->LayoutChildren();
    }
}
