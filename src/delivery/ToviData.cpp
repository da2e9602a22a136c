#include "delivery/ToviDataParts.h"
#include "delivery/ToviEnouDataFactory.h"
#include "platform/files/MibFile.h"
#include "platform/host/CDocument.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

ToviData::ToviData() : ToviData(nullptr, "", PhotoXMLMlit) {}

ToviData::ToviData(CDocument* host, const char* path, PhotoXMLType type)
    : hostDocument(host), parts(std::make_unique<Parts>([this](LabelEdit& edit) { TellOf(edit); }))
{
    RootPath(path);
    // These are the base's operations, as of any virtual call in a constructor: a derived
    // document's own are not there yet.
    parts->visualSetting.reset(ToviData::OnCreateVisualSettings());
    parts->sortCondition.reset(ToviData::OnCreateSortCondition());
    ToviData::Initialize();
    errorType = parts->itemDef.Load(path, type);
    parts->pathItems = FindPhotoPathItems(parts->itemDef, standAlone);
}

ToviData::~ToviData() = default;

ToviItemDef* ToviData::GetItemDef()
{
    return &parts->itemDef;
}

ToviPhotoArray* ToviData::GetPhotoDataArray()
{
    return &parts->photos;
}

int ToviData::GetTotalCountPhoto() const
{
    return parts->photos.GetSize();
}

ToviLabelManager* ToviData::GetLabelManager()
{
    return &parts->labelManager;
}

LabelEdits& ToviData::GetLabelEdits()
{
    return parts->labelEdits;
}

const LabelEdits& ToviData::GetLabelEdits() const
{
    return parts->labelEdits;
}

PhotoReviews ToviData::GetReviews() const
{
    return ReviewsOf(parts->photos);
}

ToviPhotoCtrlVisualSetting& ToviData::GetVisualSetting()
{
    return *parts->visualSetting;
}

const ToviPhotoCtrlVisualSetting& ToviData::GetVisualSetting() const
{
    return *parts->visualSetting;
}

ToviItemManager* ToviData::GetItemManager()
{
    return parts->itemManager.get();
}

const ToviSortCondition& ToviData::GetSortCondition() const
{
    return *parts->sortCondition;
}

void ToviData::RootPath(const char* path)
{
    if (!rootPath.empty()) earlierRoots.Add(rootPath);
    rootPath = path;
    MibNormalDir(rootPath);
    parts->files.reset();
}

CStringArray ToviData::DeliveryRoots() const
{
    CStringArray roots = earlierRoots;
    roots.Add(rootPath);
    return roots;
}

bool ToviData::IsFileOfDelivery(const CString& path) const
{
    return MibIsFileInside(rootPath, path) ||
           std::any_of(earlierRoots.begin(), earlierRoots.end(),
                       [&path](const CString& root) { return MibIsFileInside(root, path); });
}

std::shared_ptr<const DeliveryFiles> ToviData::GetFiles()
{
    if (!parts->files) {
        parts->files = std::make_shared<DeliveryFiles>(standAlone ? std::optional(DeliveryRoots())
                                                                  : std::nullopt);
    }
    return parts->files;
}

void ToviData::MakePath()
{
    for (ToviPhoto* photo : parts->photos) photo->MakePath();
}

const PhotoPathItems& ToviData::GetPathItems() const
{
    return parts->pathItems;
}

void ToviData::SetStandAlone(bool alone)
{
    standAlone = alone;
    parts->pathItems = FindPhotoPathItems(parts->itemDef, standAlone);
    parts->files.reset();
}

CString ToviData::GetIndexPath()
{
    if (!indexPath.empty()) return indexPath;
    CString index;
    CString stylesheet;
    parts->itemDef.GetPathAndName(index, stylesheet);
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
    return index >= 0 && index < parts->photos.GetSize() ? parts->photos[index] : nullptr;
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
    const int defIndex = parts->itemDef.GetIndexFromTitle(item);
    if (defIndex == -1) return false;
    const std::unordered_set<CString> known(values.begin(), values.end());
    bool hasEmpty = false;
    for (const CString& value : parts->columns.Of(defIndex).Values()) {
        if (value.empty()) {
            hasEmpty = true;
        } else if (!known.contains(value)) {
            values.Add(value);
        }
    }
    return hasEmpty;
}

void ToviData::Broadcast(UpdateHint hint, CWnd* sender, CObject* object)
{
    if (hostDocument != nullptr) hostDocument->UpdateAllViews(sender, hint, object);
}
