#include "windows/list/PhotoListContent.h"

#include "items/ToviItemDef.h"
#include "windows/loader/FileLoader.h"

#include <algorithm>

namespace
{
CString ItemText(ToviData& document, ToviPhoto& photo, const ToviItemShowSetting& item)
{
    if (item.infoType != InfoDelivery) return ShownFact(document, photo, item);
    const CString text = photo.GetTitle(item.index);
    return item.title == "撮影年月日" ? ReplaceAll(text, "-", "/") : text;
}

/// The \p count rows from \p first on, as far as they are among \p all.
RowRange Rows(int first, int count, int all)
{
    return {std::clamp(first, 0, all), std::clamp(first + count, 0, all)};
}
} // namespace

PhotoListContent::PhotoListContent(const ToviPhotoCtrlVisualSetting& theSetting)
    : setting(theSetting)
{
    connect(&FileLoader::Ours(), &FileLoader::Arrived, this, &PhotoListContent::OnArrived);
}

PhotoListContent::~PhotoListContent()
{
    FileLoader::Ours().Leave(this);
}

void PhotoListContent::SetDocument(ToviData* document)
{
    data = document;
    fetched = {};
    FileLoader::Ours().Leave(this);
}

int PhotoListContent::Count() const
{
    return data != nullptr ? data->GetCurrentPhotoCount() : 0;
}

std::vector<CString> PhotoListContent::Columns() const
{
    std::vector<CString> titles;
    for (const ToviItemShowSetting* item : ShownItems()) titles.push_back(item->title);
    if (setting.GetVisibleComment()) titles.push_back("コメント");
    return titles;
}

int PhotoListContent::SelectedRow() const
{
    for (int row = Count() - 1; row >= 0; --row) {
        if (Photo(row)->IsSelected()) return row;
    }
    return -1;
}

CString PhotoListContent::Caption(int row)
{
    const ToviPhoto* const photo = Photo(row);
    if (photo == nullptr) return {};
    return photo->GetTitle(data->GetItemDef()->GetIndexFromEnum(setting.GetTitleShowType()));
}

CString PhotoListContent::Text(int row, int column)
{
    ToviPhoto* const photo = Photo(row);
    if (photo == nullptr || column < 0) return {};
    const std::vector<const ToviItemShowSetting*> items = ShownItems();
    const auto place = static_cast<std::size_t>(column);
    if (place < items.size()) return ItemText(*data, *photo, *items[place]);
    const bool isComment = place == items.size() && setting.GetVisibleComment();
    return isComment ? photo->GetComment() : CString();
}

std::optional<int> PhotoListContent::StateImage(int row)
{
    ToviPhoto* const photo = Photo(row);
    if (photo == nullptr || !setting.GetDoEditCheck()) return 0;
    if (!TakeCheckInHand(*data, *photo)) return std::nullopt;
    switch (photo->GetEditChkResult()) {
    case ToviPhoto::EditCheckUnaltered:
        return 1;
    case ToviPhoto::EditCheckAltered:
        return 2;
    case ToviPhoto::EditCheckNone:
    case ToviPhoto::EditCheckUnknown:
        break;
    }
    return 0;
}

ListTile PhotoListContent::Tile(int row, double scale)
{
    ToviPhoto* const photo = Photo(row);
    if (photo == nullptr) return {};
    const bool isChecked = TakeCheckInHand(*data, *photo);
    const auto picture =
        FileLoader::Ours().InHand<LoadedPicture>(PhotoWishes(*data).Thumb(*photo).key);
    const LumImage* const image = picture ? &picture->image : nullptr;
    return {tiles.CreateThumbImage(*photo, image, scale), isChecked && image != nullptr};
}

void PhotoListContent::ShowRows(const RowRange& rows, bool withTiles)
{
    if (data == nullptr) return;
    const int screen = rows.end - rows.first;
    std::vector<LoadWish> wishes;
    AddWishes(wishes, rows, Urgency::Visible, withTiles);
    AddWishes(wishes, Rows(rows.end, screen, Count()), Urgency::Next, withTiles);
    AddWishes(wishes, Rows(rows.first - screen, screen, Count()), Urgency::Previous, withTiles);
    AddWishes(wishes, Rows(rows.end + screen, 2 * screen, Count()), Urgency::Idle, withTiles);
    fetched = Rows(rows.first - screen, 5 * screen, Count());
    FileLoader::Ours().Want(this, std::move(wishes));
}

void PhotoListContent::AddWishes(std::vector<LoadWish>& wishes, RowRange rows, Urgency urgency,
                                 bool withTiles) const
{
    const PhotoWishes of(*data);
    const std::vector<const ToviItemShowSetting*> items = ShownItems();
    const bool withFacts =
        !withTiles && std::ranges::any_of(items, [](const ToviItemShowSetting* item) {
            return item->infoType != InfoDelivery;
        });
    for (int row = rows.first; row < rows.end; ++row) {
        ToviPhoto* const photo = Photo(row);
        if (photo == nullptr) continue;
        if (withTiles) wishes.push_back(of.Thumb(*photo, urgency));
        if (withFacts) wishes.push_back(of.Facts(*photo, urgency));
    }
    for (int row = rows.first; row < rows.end; ++row) {
        ToviPhoto* const photo = Photo(row);
        std::optional<LoadWish> check;
        if (photo != nullptr) check = of.Check(*photo, urgency);
        if (check) wishes.push_back(std::move(*check));
    }
}

/// Looks through the rows as they are now: another sort or node may have moved the photograph.
void PhotoListContent::OnArrived(const LoadKey& key)
{
    for (int row = fetched.first; row < fetched.end; ++row) {
        ToviPhoto* const photo = Photo(row);
        if (photo != nullptr && key.path == photo->GetImagePath()) OnRowChanged(row);
    }
}

ToviPhoto* PhotoListContent::Photo(int row) const
{
    return data != nullptr ? data->GetPhoto(row) : nullptr;
}

std::vector<const ToviItemShowSetting*> PhotoListContent::ShownItems() const
{
    std::vector<const ToviItemShowSetting*> shown;
    for (const ToviItemShowSetting& item : setting.GetItemShowSettings()) {
        if (item.bold) shown.push_back(&item);
    }
    return shown;
}
