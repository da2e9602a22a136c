#include "windows/list/PhotoListContent.h"

#include "items/ToviItemDef.h"
namespace
{
CString ItemText(ToviPhoto& photo, const ToviItemShowSetting& item)
{
    CString text;
    if (item.infoType == InfoDelivery) {
        text = photo.GetTitle(item.index);
        return item.title == "撮影年月日" ? ReplaceAll(text, "-", "/") : text;
    }
    photo.LoadExif();
    if (item.infoType == InfoFile) {
        photo.GetFileInfoFromTitle(item.title, text);
    } else {
        photo.GetExifInfoFromTitle(item.title, text);
    }
    return text;
}
} // namespace

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
    if (place < items.size()) return ItemText(*photo, *items[place]);
    const bool isComment = place == items.size() && setting.GetVisibleComment();
    return isComment ? photo->GetComment() : CString();
}

int PhotoListContent::StateImage(int row)
{
    ToviPhoto* const photo = Photo(row);
    if (photo == nullptr || !setting.GetDoEditCheck()) return 0;
    data->CheckEditJPEG(photo);
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

QImage PhotoListContent::Tile(int row, double scale)
{
    ToviPhoto* const photo = Photo(row);
    if (photo == nullptr) return {};
    data->CheckEditJPEG(photo);
    return tiles.CreateThumbImage(*photo, scale);
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
