#include "document/ToviData.h"

#include "document/TreeBuilder.h"
#include "platform/MibFile.h"

#include <algorithm>
#include <array>
#include <span>
#include <unordered_set>

namespace
{
constexpr std::array workTypeLevels = {"写真-大分類", "写真区分", "工種", "種別", "細別"};
constexpr std::size_t upperLevels = 2;
constexpr const char* placeLevel = "撮影箇所";
} // namespace

ToviData::ToviData() : ToviData(nullptr, "", PhotoXMLMlit) {}

ToviData::ToviData(CDocument* host, const char* path, PhotoXMLType type) : hostDocument(host)
{
    RootPath(path);
    errorType = itemDef.Load(path, type);
}

void ToviData::RootPath(const char* path)
{
    if (!rootPath.empty()) earlierRoots.Add(rootPath);
    rootPath = path;
    MibNormalDir(rootPath);
}

bool ToviData::IsInsideDelivery(const CString& path) const
{
    return MibIsInside(rootPath, path) ||
           std::any_of(earlierRoots.begin(), earlierRoots.end(),
                       [&path](const CString& root) { return MibIsInside(root, path); });
}

void ToviData::MakePath()
{
    for (ToviPhoto* photo : photoData) photo->MakePath();
}

const PhotoPathItems& ToviData::GetPathItems()
{
    if (!pathItems) pathItems = FindPhotoPathItems(itemDef, standAlone);
    return *pathItems;
}

void ToviData::SetStandAlone(bool alone)
{
    standAlone = alone;
    pathItems.reset();
}

ToviPhoto* ToviData::GetPhoto(int pos) const
{
    return GetPhotoActualPhotoArray(GetIndexPhotoArray(pos));
}

ToviPhoto* ToviData::GetPhotoActualPhotoArray(int index) const
{
    return index >= 0 && index < photoData.GetSize() ? photoData[index] : nullptr;
}

int ToviData::GetPhotoIndex(int pos) const
{
    return curPhotos.IsEmpty() ? -1 : curPhotos[pos];
}

int ToviData::GetIndexPhotoArray(int pos) const
{
    return pos >= 0 && pos < curPhotos.GetSize() ? curPhotos[pos] : -1;
}

bool ToviData::GetPhotoItemValue(const CString& item, CStringArray& values)
{
    const int defIndex = itemDef.GetIndexFromTitle(item);
    if (defIndex == -1) return false;
    std::unordered_set<CString> known(values.begin(), values.end());
    bool hasEmpty = false;
    CStringArray ofPhoto;
    for (const ToviPhoto* photo : photoData) {
        photo->GetTitleFromIndex(defIndex, ofPhoto);
        for (const CString& value : ofPhoto) {
            if (value.empty()) {
                hasEmpty = true;
            } else if (known.insert(value).second) {
                values.Add(value);
            }
        }
    }
    return hasEmpty;
}

void ToviData::BuildTreeNode(ToviPhotoCtrlVisualSetting::TreeType type)
{
    if (type == ToviPhotoCtrlVisualSetting::TreeWorkTypeFull ||
        type == ToviPhotoCtrlVisualSetting::TreeWorkType) {
        BuildTreeNodeForKousyu(type);
    } else {
        BuildTreeNodeForSatsueikasyo();
    }
    selectedNode = selectedPhoto == -1 ? nullptr : GetNode(selectedPhoto, this);
    if (selectedNode == nullptr) selectedNode = this;
    if (hostDocument != nullptr) FillCurrentArray(*selectedNode);
}

void ToviData::BuildTreeNodeForKousyu(ToviPhotoCtrlVisualSetting::TreeType type)
{
    const std::span<const char* const> levels = workTypeLevels;
    const bool full = type == ToviPhotoCtrlVisualSetting::TreeWorkTypeFull;
    TreeBuilder(*this).BuildByWorkType(itemDef, photoData,
                                       full ? levels : levels.subspan(upperLevels));
}

void ToviData::BuildTreeNodeForSatsueikasyo()
{
    TreeBuilder(*this).BuildByPlace(itemDef, photoData, placeLevel);
}

ToviNode* ToviData::GetNode(int photoIndex, ToviNode* from) const
{
    if (from->HasData(photoIndex)) return from;
    for (ToviNode* child : from->Items()) {
        if (ToviNode* holder = GetNode(photoIndex, child)) return holder;
    }
    return nullptr;
}

ToviNode* ToviData::SetSelected(ToviNode* node, bool force)
{
    ToviNode* const before = selectedNode;
    if (node == before && !force) return before;
    selectedNode = node;
    if (hostDocument == nullptr) return before;
    FillCurrentArray(*node);
    Broadcast(HintSelectionChanged);
    return before;
}

void ToviData::SetSelected()
{
    ToviNode* const holder = selectedPhoto == -1 ? nullptr : GetNode(selectedPhoto, this);
    if (holder != nullptr) {
        SetSelected(holder, false);
        return;
    }
    SetSelected(this, false);
    PhotoSelectSetting(curPhotos[0]);
}

bool ToviData::PhotoSelectSetting(int index)
{
    if (index < 0) return false;
    if (index == selectedPhoto) return true;
    ToviPhoto* const chosen = photoData[index];
    if (ToviPhoto* before = GetSelectedPhoto()) before->Select(false);
    chosen->Select(true);
    selectedPhoto = index;
    Broadcast(HintPhotoSelected);
    return true;
}

int ToviData::GetSelectCurIndex() const
{
    return selectedPhoto == -1 ? -1 : curPhotos.Find(selectedPhoto);
}

void ToviData::GetIndexSelected(int& pos) const
{
    if (curPhotos.IsEmpty()) return;
    const auto selected = std::find_if(curPhotos.begin(), curPhotos.end(), [this](int index) {
        return photoData[index]->IsSelected();
    });
    pos = selected == curPhotos.end() ? -1 : static_cast<int>(selected - curPhotos.begin());
}

void ToviData::FillCurrentArray(const ToviNode& node)
{
    CArray<int> beneath;
    node.GetAllUnder(beneath);
    curPhotos.Assign(beneath);
}

void ToviData::Broadcast(UpdateHint hint)
{
    if (hostDocument != nullptr) hostDocument->UpdateAllViews(nullptr, hint, nullptr);
}
