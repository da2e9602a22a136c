#include "windows/list/PhotoListContent.h"

#include "extraction/ReviewOrder.h"
#include "extraction/ToviSortCondition.h"
#include "items/ToviItemDef.h"
#include "review/LabelCaption.h"
#include "windows/loader/FileLoader.h"
#include "windows/pictures/FaultText.h"

#include <algorithm>

namespace
{
CString ItemText(ToviData& document, ToviPhoto& photo, const ToviItemShowSetting& item)
{
    if (item.infoType != InfoDelivery) return ShownFact(document, photo, item);
    const CString text = photo.GetTitle(item.index);
    return item.title == "撮影年月日" ? ReplaceAll(text, "-", "/") : text;
}

/// What is written on the tile of \p photo; empty when nothing is wrong with its picture.
QString FailureOf(const LoadedPicture& picture, ToviPhoto& photo)
{
    const PictureFault fault = picture.Fault();
    return picture.ok ? FaultReason(fault) : FaultText(fault, photo.GetImagePath());
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
    columns.clear();
    items.clear();
    FileLoader::Ours().Leave(this);
}

int PhotoListContent::Count() const
{
    return data != nullptr ? data->GetCurrentPhotoCount() : 0;
}

std::vector<ListColumn> PhotoListContent::Columns()
{
    columns.clear();
    AddLeadingColumns();
    items.assign(columns.size(), nullptr);
    const auto isThere = [this](const CString& key) {
        return std::ranges::find(columns, key, &ListColumn::sortKey) != columns.end();
    };
    for (const ToviItemShowSetting* item : ShownItems()) {
        if (item->infoType != InfoDelivery) {
            columns.push_back({ListColumn::Fact, item->title});
        } else if (!isThere(item->title)) {
            columns.push_back({ListColumn::Item, item->title, item->title});
        } else {
            continue;
        }
        items.push_back(item);
    }
    return columns;
}

void PhotoListContent::AddLeadingColumns()
{
    const ListColumn leading[] = {{ListColumn::Labels, leadingColumns[0], labelsSortKey},
                                  {ListColumn::Comment, leadingColumns[1], commentSortKey},
                                  {ListColumn::Item, leadingColumns[2], "シリアル番号"},
                                  {ListColumn::Item, leadingColumns[3], "写真ファイル名"}};
    for (const ListColumn& column : leading) {
        if (ListColumnMemory::IsShown(column.title)) columns.push_back(column);
    }
}

std::pair<int, bool> PhotoListContent::Order()
{
    if (data == nullptr || !data->GetSortCondition().IsExecSort()) return {-1, true};
    const ToviSortCondition& order = data->GetSortCondition();
    const auto found = std::ranges::find(columns, order.GetKeyItem(), &ListColumn::sortKey);
    const bool isShown = found != columns.end();
    return {isShown ? static_cast<int>(found - columns.begin()) : -1, order.IsAscending()};
}

bool PhotoListContent::ChangeOrder(int column)
{
    const auto place = static_cast<std::size_t>(column);
    if (data == nullptr || place >= columns.size() || columns[place].sortKey.empty()) return false;
    data->SetSortCondition(OrderAfterClick(data->GetSortCondition(), columns[place].sortKey));
    return true;
}

LabelSet PhotoListContent::Labels(int row)
{
    const ToviPhoto* const photo = Photo(row);
    return photo != nullptr ? LabelSetOf(*photo) : LabelSet();
}

CString PhotoListContent::LabelNames(int row)
{
    const LabelSet labels = Labels(row);
    CString names;
    for (unsigned int slot = 0; slot < labelCount; ++slot) {
        if (!labels.test(slot)) continue;
        if (!names.empty()) names += "、";
        names += LabelCaption(*data->GetLabelManager(), slot);
    }
    return names;
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
    const auto place = static_cast<std::size_t>(column);
    if (photo == nullptr || place >= columns.size()) return {};
    const ListColumn& wanted = columns[place];
    if (wanted.kind == ListColumn::Labels) return {};
    if (wanted.kind == ListColumn::Comment) return photo->GetComment();
    if (items[place] != nullptr) return ItemText(*data, *photo, *items[place]);
    return photo->GetTitle(data->GetItemDef()->GetIndexFromTitle(wanted.sortKey));
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
    if (!picture) return {tiles.CreateThumbImage(*photo, nullptr, {}, scale), false};
    return {tiles.CreateThumbImage(*photo, &picture->image, FailureOf(*picture, *photo), scale),
            isChecked};
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
    const bool withFacts =
        !withTiles && std::ranges::any_of(ShownItems(), [](const ToviItemShowSetting* item) {
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
