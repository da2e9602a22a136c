#include "delivery/ToviData.h"

#include "delivery/ToviEnouDataFactory.h"
#include "extraction/ExtractionEngine.h"
#include "extraction/ToviSorter.h"
#include "imagefacts/ImageTypeChoice.h"
#include "imagefacts/ItemCandidates.h"
#include "imagefacts/RicohVerifier.h"
#include "imagefacts/ToviControlValueArray.h"
#include "photos/TreeBuilder.h"
#include "platform/files/MibFile.h"
#include "review/LabelCorrection.h"
#include "review/LabelProcessSelectDlg.h"
#include "review/LabelRules.h"
#include "review/RecordOrigin.h"
#include "review/ToviXmlLoadManager.h"
#include "review/ToviXmlSaveManager.h"

#include <algorithm>
#include <array>
#include <span>
#include <unordered_set>

namespace
{
constexpr std::array workTypeLevels = {"写真-大分類", "写真区分", "工種", "種別", "細別"};
constexpr std::size_t upperLevels = 2;
constexpr const char* placeLevel = "撮影箇所";

ToviPhoto::EditJPEGCheckResult ResultOf(ToviCheckProcessor::CheckStatus status)
{
    switch (status) {
    case ToviCheckProcessor::StatusUnaltered:
        return ToviPhoto::EditCheckUnaltered;
    case ToviCheckProcessor::StatusAltered:
        return ToviPhoto::EditCheckAltered;
    case ToviCheckProcessor::StatusOutsideTarget:
    case ToviCheckProcessor::StatusError:
        break;
    }
    return ToviPhoto::EditCheckUnknown;
}
} // namespace

ToviData::ToviData() : ToviData(nullptr, "", PhotoXMLMlit) {}

ToviData::ToviData(CDocument* host, const char* path, PhotoXMLType type)
    : hostDocument(host), labelEdits(photoData, [this](LabelEdit& edit) { TellOf(edit); }),
      imageCheck(std::make_unique<ToviImageCheckCommon>(nullptr))
{
    RootPath(path);
    // These are the base's operations, as of any virtual call in a constructor: a derived
    // document's own are not there yet.
    visualSetting.reset(ToviData::OnCreateVisualSettings());
    sortCondition.reset(ToviData::OnCreateSortCondition());
    ToviData::Initialize();
    errorType = itemDef.Load(path, type);
}

void ToviData::RootPath(const char* path)
{
    if (!rootPath.empty()) earlierRoots.Add(rootPath);
    rootPath = path;
    MibNormalDir(rootPath);
}

CStringArray ToviData::DeliveryRoots() const
{
    CStringArray roots = earlierRoots;
    roots.Add(rootPath);
    return roots;
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

CString ToviData::GetIndexPath()
{
    if (!indexPath.empty()) return indexPath;
    CString index;
    CString stylesheet;
    itemDef.GetPathAndName(index, stylesheet);
    if (!index.empty() && !stylesheet.empty()) {
        indexPath = ToviEnouDataFactory().GetNewIndexPath(index, stylesheet);
    }
    return indexPath;
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

int ToviData::CollectionLabel(unsigned long label, ToviPhotoRef& out) const
{
    out.RemoveAll();
    for (int index = 0; index < photoData.GetSize(); ++index) {
        if (photoData[index]->IsLabelPasted(static_cast<unsigned int>(label))) out.Add(index);
    }
    return out.GetSize();
}

int ToviData::CountLabel(unsigned long label) const
{
    return label < labelCount ? labelEdits.Count(LabelSet().set(label)) : 0;
}

int ToviData::IsLabeled() const
{
    return labelEdits.Count(LabelSet().set()) > 0 ? 1 : 0;
}

void ToviData::UpdateHasComment()
{
    if (curPhotos.IsEmpty()) return;
    hasComment = std::any_of(curPhotos.begin(), curPhotos.end(),
                             [this](int index) { return !photoData[index]->GetComment().empty(); });
}

void ToviData::UpdatePhotoInf(CWnd* sender, LabelEdit* edit)
{
    Broadcast(HintPhotoInfoChanged, sender, edit);
}

bool ToviData::AllLabelCorrection()
{
    LabelProcessSelectDlg dialog;
    if (!dialog.DoModal() || !ConfirmLabelCorrection()) return false;
    bool corrected = true;
    switch (dialog.GetAction()) {
    case LabelProcessSelectDlg::PasteOk:
        corrected = AllOKLabel();
        break;
    case LabelProcessSelectDlg::RemoveChecks:
        corrected = AllRemoveCheckLabel();
        break;
    case LabelProcessSelectDlg::RemoveAll:
        AllRemoveLabel();
        break;
    }
    return corrected;
}

bool ToviData::AllOKLabel()
{
    CorrectShown(LabelRules::CorrectUnlessNG);
    return !curPhotos.IsEmpty();
}

bool ToviData::AllRemoveCheckLabel()
{
    CorrectShown(LabelRules::CorrectAllNotCheck);
    return !curPhotos.IsEmpty();
}

void ToviData::AllRemoveLabel()
{
    CorrectShown(LabelRules::RemoveAllLabel);
}

void ToviData::CorrectShown(const LabelEdits::Rule& rule)
{
    labelEdits.Apply(labelEdits.Make(LabelEdit::Batch, curPhotos, rule));
}

void ToviData::TellOf(LabelEdit& edit)
{
    // First, so that whoever hears of the change finds the document changed.
    SetCheckStatusChanged(true);
    if (edit.kind == LabelEdit::OnePhoto) {
        UpdatePhotoInf(edit.sender, &edit);
    } else {
        Broadcast(HintLabelsChanged, edit.sender);
    }
}

RecordOrigin ToviData::GetRecordOrigin()
{
    return {photoData, itemDef, GetPathItems().photograph};
}

bool ToviData::SaveExamination(const char* path, const char* note, int* result)
{
    if (*path == '\0') return false;
    ToviXmlSaveManager manager(path, note, RootPath());
    manager.WriteOrigin(GetRecordOrigin());
    const bool saved = manager.Save(photoData, result);
    if (saved) SetCheckStatusChanged(false);
    return saved;
}

bool ToviData::LoadExamination(const char* path, int* result)
{
    return LoadExamination(path, result, RecordsOfThisDelivery);
}

bool ToviData::LoadExamination(const char* path, int* result, RecordsTaken taken)
{
    if (*path == '\0') return false;
    ToviXmlLoadManager manager(path, RootPath());
    if (taken == RecordsOfThisDelivery) manager.Expect(GetRecordOrigin());
    PhotoReviews reviews = GetReviews();
    const bool loaded = manager.Load(reviews, result);
    if (loaded) labelEdits.Apply(labelEdits.Make(LabelEdit::RecordLoad, reviews));
    UpdateHasComment();
    return loaded;
}

void ToviData::ReturnExam(const char* path)
{
    int ignored = 0;
    ReturnExam(path, &ignored);
}

bool ToviData::ReturnExam(const char* path, int* result)
{
    if (*path == '\0') return false;
    ToviXmlSaveManager manager(path, nullptr, nullptr);
    manager.WritePath(true);
    manager.WriteOrigin(GetRecordOrigin());
    return manager.Save(photoData, result);
}

bool ToviData::Load()
{
    settingsLoaded = true;
    labelManager.Load(nullptr);
    visualSetting->Load();
    sortCondition->Load();
    const ToviItemShowSettings items = LoadItems();
    if (items.IsEmpty()) return true;
    visualSetting->SetItemShowSettings(items);
    itemManager->SetItemShowSettings(items);
    itemManager->Save();
    return true;
}

bool ToviData::TakeOverSettings()
{
    if (!settingsLoaded) return false;
    const ToviPhotoCtrlVisualSetting oldVisual(*visualSetting);
    const ToviLabelManager oldLabels(labelManager);
    const ToviSortCondition oldSort(*sortCondition);
    labelManager.Load(nullptr);
    sortCondition->Load();
    // The titles in the store are those of the kind opened last.
    if (itemDef.IsLastType()) itemManager->TakeOver();
    ToviPhotoCtrlVisualSetting visual(oldVisual);
    visual.Load();
    SetVisualSetting(visual, false);
    return !(*visualSetting == oldVisual && labelManager == oldLabels && *sortCondition == oldSort);
}

ToviItemShowSettings ToviData::LoadItems()
{
    if (itemDef.TypeIsCorresponding()) {
        CStringArray hidden;
        itemManager->Load(hidden);
        return ItemsWithout(itemDef, hidden);
    }
    const ToviItemShowSettings items = DefaultItems(itemDef);
    if (items.IsBold(controlValueTitle)) visualSetting->SetVisibleControlValue(true);
    return items;
}

void ToviData::SetVisualSetting(const ToviPhotoCtrlVisualSetting& setting, bool force)
{
    const bool changed = force || visualSetting->IsChangeEditCheckTerm(setting);
    *visualSetting = setting;
    visualSetting->SetItemShowSettings(itemManager->GetItemShowSettings());
    if (settingsLoaded) visualSetting->Save();
    if (!changed) return;
    imageCheck->SetCheckCameraType(ParseEditCheckTypes(visualSetting->GetEditCheckTypes()));
    Initialize_CheckEditJPEG();
}

void ToviData::CheckEditJPEG(ToviPhoto* photo)
{
    if (!visualSetting->GetDoEditCheck() || visualSetting->GetEditCheckTypes().empty()) return;
    // Here two names that differ in letter case alone can be two files.
    imageCheck->SetFile("");
    imageCheck->SetFile(photo->ReadablePath());
    photo->SetEditChkResult(ResultOf(imageCheck->CheckProcessedImage()));
}

void ToviData::Initialize_CheckEditJPEG()
{
    for (ToviPhoto* photo : photoData) photo->SetEditChkResult(ToviPhoto::EditCheckNone);
}

int ToviData::CheckEditJPEG_RICOHG600(const CString& path)
{
    const int answer = RicohVerifier().Verify(path).value_or(2);
    return answer == 0 || answer == 1 ? answer : 2;
}

void ToviData::SetManager(const ToviLabelManager& labels, const ToviItemManager& items,
                          bool withItems)
{
    labelManager = labels;
    if (settingsLoaded) labelManager.Save(nullptr);
    if (withItems) *itemManager = items;
}

void ToviData::Initialize()
{
    itemManager = std::make_unique<ToviItemManager>();
}

ToviPhotoCtrlVisualSetting* ToviData::OnCreateVisualSettings()
{
    return new ToviPhotoCtrlVisualSetting;
}

void ToviData::SetSortCondition(const ToviSortCondition& condition)
{
    *sortCondition = condition;
    if (settingsLoaded) sortCondition->Save();
}

ToviSortCondition* ToviData::OnCreateSortCondition()
{
    return new ToviSortCondition;
}

void ToviData::Sort()
{
    ToviSorter sorter(photoData, itemDef);
    sorter.PrepareSort(sortCondition->GetKeyItem(), curPhotos);
    sorter.QuickSort(sortCondition->IsAscending(), curPhotos);
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
    const ExtractionEngine engine(itemDef, photoData, extraction->GetConditions());
    const auto outcome = engine.ExecExtractionAND(curPhotos);
    if (outcome == ExtractionEngine::Outcome::Cancelled) CancelExtraction(CancelExtButton);
}

void ToviData::ExecExtractionOR()
{
    if (extraction == nullptr) return;
    const ExtractionEngine engine(itemDef, photoData, extraction->GetConditions());
    const auto outcome = engine.ExecExtractionOR(curPhotos);
    if (outcome == ExtractionEngine::Outcome::Cancelled) CancelExtraction(CancelExtButton);
}

void ToviData::SetCurPhotoArray(bool /*ignored*/, bool update)
{
    curPhotos.RemoveAll();
    if (sortCondition->IsExecSort()) Sort();
    if (update) Broadcast(HintCurrentArrayChanged);
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
    if (hostDocument != nullptr) RebuildCurrentArray();
    UpdateHasComment();
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
    if (sortCondition->IsExecSort()) Sort();
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

void ToviData::RebuildCurrentArray()
{
    CArray<int> beneath;
    if (selectedNode != nullptr) selectedNode->GetAllUnder(beneath);
    curPhotos.Assign(beneath);
    ExtractionProcess();
    if (sortCondition->IsExecSort()) Sort();
}

void ToviData::Broadcast(UpdateHint hint, CWnd* sender, CObject* object)
{
    if (hostDocument != nullptr) hostDocument->UpdateAllViews(sender, hint, object);
}
