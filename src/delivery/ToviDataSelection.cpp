#include "delivery/ToviDataParts.h"
#include "extraction/ExtractionEngine.h"
#include "extraction/ReviewOrder.h"
#include "extraction/ToviExtractionDlg.h"
#include "extraction/ToviSorter.h"
#include "photos/TreeBuilder.h"

#include <algorithm>
#include <array>
#include <span>

namespace
{
constexpr std::array workTypeLevels = {"写真-大分類", "写真区分", "工種", "種別", "細別"};
constexpr std::size_t upperLevels = 2;
constexpr const char* placeLevel = "撮影箇所";
} // namespace

void ToviData::SetSortCondition(const ToviSortCondition& condition)
{
    *parts->sortCondition = condition;
    if (settingsLoaded) parts->sortCondition->Save();
}

ToviSortCondition* ToviData::OnCreateSortCondition()
{
    return new ToviSortCondition;
}

void ToviData::Sort()
{
    const ToviSortCondition& order = *parts->sortCondition;
    if (SortByReview(order.GetKeyItem(), order.IsAscending(), parts->photos, curPhotos)) return;
    ToviSorter sorter(parts->columns, parts->itemDef);
    sorter.PrepareSort(parts->sortCondition->GetKeyItem(), curPhotos);
    sorter.QuickSort(parts->sortCondition->IsAscending(), curPhotos);
}

void ToviData::ExecExtraction()
{
    extractionOn = true;
    SetSelected(selectedNode, true);
}

void ToviData::CancelExtraction()
{
    extractionOn = false;
    SetSelected(selectedNode, true);
}

void ToviData::CancelExtraction(CancelExt value)
{
    if (!extractionOn) return;
    if (extraction != nullptr) extraction->CancelExtraction(value);
    extractionOn = false;
}

void ToviData::ExtractionProcess()
{
    if (!extractionOn || extraction == nullptr) return;
    if (extraction->GetConditions().orMode != 0) {
        ExecExtractionOR();
    } else {
        ExecExtractionAND();
    }
}

void ToviData::ExecExtractionAND()
{
    if (extraction == nullptr) return;
    const ExtractionEngine engine(parts->itemDef, parts->photos, parts->columns,
                                  extraction->GetConditions());
    const auto outcome = engine.ExecExtractionAND(curPhotos);
    if (outcome == ExtractionEngine::Outcome::Cancelled) CancelExtraction(CancelExtButton);
}

void ToviData::ExecExtractionOR()
{
    if (extraction == nullptr) return;
    const ExtractionEngine engine(parts->itemDef, parts->photos, parts->columns,
                                  extraction->GetConditions());
    const auto outcome = engine.ExecExtractionOR(curPhotos);
    if (outcome == ExtractionEngine::Outcome::Cancelled) CancelExtraction(CancelExtButton);
}

void ToviData::SetSearchText(const CString& text)
{
    parts->search.LookFor(text);
}

const CString& ToviData::GetSearchText() const
{
    return parts->search.GetText();
}

void ToviData::SetCurPhotoArray(bool /*ignored*/, bool update)
{
    curPhotos.RemoveAll();
    if (parts->sortCondition->IsExecSort()) Sort();
    if (update) Broadcast(HintCurrentArrayChanged);
}

void ToviData::BuildTreeNode(TreeType type)
{
    if (type == ToviPhotoCtrlVisualSetting::TreeWorkTypeFull ||
        type == ToviPhotoCtrlVisualSetting::TreeWorkType) {
        BuildTreeNodeForKousyu(type);
    } else {
        BuildTreeNodeForSatsueikasyo();
    }
    selectedNode = selectedPhoto == -1 ? nullptr : GetNode(selectedPhoto, this);
    if (selectedNode == nullptr) selectedNode = this;
    if (hostDocument != nullptr) RebuildCurrentArray();
    UpdateHasComment();
}

void ToviData::BuildTreeNodeForKousyu(TreeType type)
{
    const std::span<const char* const> levels = workTypeLevels;
    const bool full = type == ToviPhotoCtrlVisualSetting::TreeWorkTypeFull;
    TreeBuilder(*this).BuildByWorkType(parts->itemDef, parts->photos,
                                       full ? levels : levels.subspan(upperLevels));
}

void ToviData::BuildTreeNodeForSatsueikasyo()
{
    TreeBuilder(*this).BuildByPlace(parts->itemDef, parts->photos, placeLevel);
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
    RebuildCurrentArray();
    Broadcast(HintSelectionChanged);
    UpdateHasComment();
    return before;
}

void ToviData::SetSelected(int label)
{
    selectedLabel = label;
    curPhotos.RemoveAll();
    if (label >= 0) CollectionLabel(static_cast<unsigned long>(label), curPhotos);
    parts->search.Narrow(curPhotos);
    if (parts->sortCondition->IsExecSort()) Sort();
    Broadcast(HintSelectionChanged);
    UpdateHasComment();
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
    ToviPhoto* const chosen = parts->photos[index];
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
        return parts->photos[index]->IsSelected();
    });
    pos = selected == curPhotos.end() ? -1 : static_cast<int>(selected - curPhotos.begin());
}

void ToviData::RebuildCurrentArray()
{
    CArray<int> beneath;
    if (selectedNode != nullptr) selectedNode->GetAllUnder(beneath);
    curPhotos.Assign(beneath);
    ExtractionProcess();
    parts->search.Narrow(curPhotos);
    if (parts->sortCondition->IsExecSort()) Sort();
}
