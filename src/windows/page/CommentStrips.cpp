#include "windows/page/CommentStrips.h"

#include "photos/ToviPhoto.h"
#include "windows/list/RowsInSight.h"
#include "windows/page/StripPlaces.h"

static constexpr int idStrip = 1136;

void CommentStrips::Reset(int newCount)
{
    for (const int slot : Filled()) Remove(slot);
    strips.clear();
    count = newCount;
}

ToviCommentWindow* CommentStrips::At(int slot) const
{
    if (slot < 0 || slot >= count) ThrowOutsideArray(slot, count);
    const auto found = strips.find(slot);
    return found == strips.end() ? nullptr : found->second.data();
}

ToviCommentWindow* CommentStrips::AtOrNew(int slot, QWidget* parent, const ToviData& data,
                                          int position)
{
    ToviCommentWindow* strip = At(slot);
    if (strip != nullptr) return strip;
    strip = new ToviCommentWindow;
    strip->Create({}, QRect(), parent, idStrip, position);
    const ToviPhoto* const photo = data.GetPhoto(position);
    if (photo != nullptr) strip->SetComment(photo->GetComment());
    connect(strip, &ToviCommentWindow::Clicked, this, &CommentStrips::Clicked);
    connect(strip, &ToviCommentWindow::DoubleClicked, this, &CommentStrips::DoubleClicked);
    strips[slot] = strip;
    return strip;
}

void CommentStrips::PlaceOnCells(const CellPage& cells, const ToviData& data)
{
    if (count != cells.CountFilled()) Reset(cells.CountFilled());
    for (int slot = 0; slot < count; ++slot) {
        ToviSpiCtrl& cell = cells.At(slot);
        ToviCommentWindow* const strip = AtOrNew(slot, &cell, data, cell.GetPhotoIndex());
        strip->setGeometry(0, 0, cell.GetImageSize().width(), CellLayout::stripHeight);
        strip->ShowIfAny(true);
    }
}

void CommentStrips::PlaceOnList(QWidget* viewport, const std::function<QRect(int)>& placeOf,
                                const ToviData& data)
{
    if (count != data.GetCurrentPhotoCount()) Reset(data.GetCurrentPhotoCount());
    const auto place = [&placeOf](int row) {
        const QRect rect = placeOf(row);
        return CellPlace{rect.x(), rect.y(), rect.width(), rect.height()};
    };
    const auto inSight = [&](int row) {
        return IsItemInSight(place(row), viewport->width(), viewport->height());
    };
    for (const int row : Filled()) {
        if (!inSight(row)) Remove(row);
    }
    const RowRange rows = RowsInSight(count, viewport->height(), place);
    for (int row = rows.first; row < rows.end; ++row) {
        if (!inSight(row)) continue;
        ToviCommentWindow* const strip = AtOrNew(row, viewport, data, row);
        const CellPlace over = StripPlaceOnItem(place(row));
        strip->setGeometry(over.x, over.y, over.width, over.height);
        strip->ShowIfAny(true);
    }
}

void CommentStrips::Remove(int slot)
{
    ToviCommentWindow* const strip = At(slot);
    strips.erase(slot);
    if (strip == nullptr) return;
    // Later, since a click on the strip itself may have led here.
    strip->hide();
    strip->deleteLater();
}

std::vector<int> CommentStrips::Filled() const
{
    std::vector<int> filled;
    for (const auto& [slot, strip] : strips) {
        if (strip) filled.push_back(slot);
    }
    return filled;
}

void CommentStrips::HideAll()
{
    for (const int slot : Filled()) At(slot)->hide();
}
